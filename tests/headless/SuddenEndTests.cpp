#include "tests/headless/CHeadlessProcess.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>

// What a process leaves behind depends only on the calls that it has made, so an end right before each of them in turn
// is an end at every moment.
namespace
{

using CArguments = std::vector<std::string>;

constexpr int c_iIterations = 4;
constexpr int c_iMostCalls = 1000;

// A folder with every file that a run can write.
class CRunFolder
{
public:
    CArguments GetOutputs() const
    {
        return {"--stats",
                m_Folder.GetPath("stats.csv"),
                "--stats-every",
                "3",
                "--observables",
                "--histogram",
                m_Folder.GetPath("speeds.csv"),
                "--histogram-at",
                "0,3,end",
                "--save-state",
                m_Folder.GetPath("state.csv"),
                "--trajectory",
                m_Folder.GetPath("run.xyz.gz"),
                "--every",
                "3",
                "--video",
                m_Folder.GetPath("run.y4m"),
                "--picture",
                m_Folder.GetPath("gas.png"),
                "--checkpoint",
                m_Folder.GetPath("run.ckpt"),
                "--quiet",
                "--picture-every",
                "2",
                "--checkpoint-every",
                "2"};
    }

    CLaunch GetRun() const
    {
        CArguments arguments = {"--seed",  "3",   "--atoms",  "40",  "--start-at",   "50,50",
                                "--width", "100", "--height", "100", "--iterations", std::to_string(c_iIterations)};
        const CArguments outputs = GetOutputs();
        arguments.insert(arguments.end(), outputs.begin(), outputs.end());
        return {arguments};
    }

    // Continues the run to its end if there is a checkpoint, otherwise starts it again.
    void Finish() const
    {
        const std::string sCheckpoint = m_Folder.GetPath("run.ckpt");
        CLaunch launch = GetRun();
        if (ReadFile(sCheckpoint) != "old")
        {
            const CProgramResult shown = RunHeadless({{"--resume", sCheckpoint, "--iterations", "0"}});
            EXPECT_EQ(shown.exitCode, 0) << shown.err;
            const int done = std::atoi(GetSummaryValue(shown.out, "iterations").c_str());
            launch.arguments = {"--resume", sCheckpoint, "--iterations", std::to_string(c_iIterations - done)};
            const CArguments outputs = GetOutputs();
            launch.arguments.insert(launch.arguments.end(), outputs.begin(), outputs.end());
        }
        const CProgramResult result = RunHeadless(launch);
        EXPECT_EQ(result.exitCode, 0) << result.err;
    }

    void WriteOldFiles() const
    {
        for (const std::string& sName : GetNames())
        {
            m_Folder.WriteFile(sName, "old");
        }
    }

    std::string Read(const std::string& sName) const { return ReadFile(m_Folder.GetPath(sName)); }

    const CTemporaryFolder& GetFolder() const { return m_Folder; }

    static CArguments GetNames()
    {
        return {"stats.csv", "speeds.csv", "state.csv", "run.xyz.gz", "run.y4m",
                "gas.png",   "gas-2.png",  "gas-4.png", "run.ckpt"};
    }

private:
    CTemporaryFolder m_Folder;
};

// Ends the run right before the call with this number. False if it makes fewer calls.
bool EndBefore(const CRunFolder& run, int call)
{
    CLaunch launch = run.GetRun();
    // The name of the folder, not its path: the rule's texts are short.
    launch.faults = "any:kinetarium-headless-:" + std::to_string(call) + ":signal=9";
    return RunHeadless(launch).exitCode == -SIGKILL;
}

} // namespace

TEST(SuddenEnd, LeavesOldOrNewFilesAndARunThatCanBeContinued)
{
    const CRunFolder whole;
    EXPECT_EQ(RunHeadless(whole.GetRun()).exitCode, 0);
    int call = 1;
    for (bool bEnded = true; bEnded; ++call)
    {
        ASSERT_LT(call, c_iMostCalls);
        const CRunFolder run;
        run.WriteOldFiles();
        bEnded = EndBefore(run, call);
        for (const std::string& sName : CRunFolder::GetNames())
        {
            const std::string sBytes = run.Read(sName);
            const bool bCheckpoint = sName == "run.ckpt"; // may be one in between: Finish reads it
            EXPECT_TRUE(bCheckpoint || sBytes == "old" || sBytes == whole.Read(sName)) << sName << ", call " << call;
        }
        run.Finish();
        for (const std::string& sName : CRunFolder::GetNames())
        {
            ASSERT_EQ(run.Read(sName), whole.Read(sName)) << sName << ", call " << call;
        }
    }
    // Each of the eight files is opened, written, flushed, closed and renamed.
    EXPECT_GT(call, 40);
}
