#include "tests/headless/CHeadlessProcess.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>

using testing::StartsWith;

// Signals in the middle of a frame. A fault stops the program right before a call, as in SignalTests.cpp.
namespace
{

using CArguments = std::vector<std::string>;
using CNames = std::vector<std::string>;

const std::string c_sForEver = "1000000000000";

// In pieces that are written one by one.
const CArguments c_ManyAtoms = {"--seed", "42", "--atoms", "20000", "--width", "3000", "--height", "3000"};

CArguments Join(CArguments first, const CArguments& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

// Ends the run by a signal before the write with this number and returns what it says.
std::string EndAtWrite(const CArguments& arguments, const std::string& sFile, int write,
                       const std::string& sOtherFault = "")
{
    const std::string sStop = "write:" + sFile + ":" + std::to_string(write) + ":signal=19";
    CHeadlessProcess process({Join(c_ManyAtoms, arguments), sStop + sOtherFault});
    if (!process.WaitForStop())
    {
        return "there were fewer writes: " + process.WaitForEnd().err;
    }
    process.Send(SIGTERM);
    process.Continue();
    const CProgramResult result = process.WaitForEnd();
    EXPECT_EQ(result.exitCode, 128 + SIGTERM);
    return result.err;
}

} // namespace

TEST(RecordingSignal, EndsAFrameAndLeavesNoTemporaryFile)
{
    for (const std::string sName : {"run.xyz", "run.xyz.gz", "run.y4m"})
    {
        const CTemporaryFolder folder;
        const std::string sOption = sName == "run.y4m" ? "--video" : "--trajectory";
        EXPECT_THAT(EndAtWrite({"--iterations", c_sForEver, sOption, folder.GetPath(sName)}, sName, 3),
                    StartsWith("error: interrupted"));
        // A machine that is busy may end it before it can keep the beginning of the frame.
        for (const std::string& sLeft : folder.GetNames())
        {
            EXPECT_EQ(sLeft, sName + ".partial");
        }
    }
}

// The disk may need seconds for a large file, and nothing relies on it. A wait for it would be an error here.
TEST(RecordingSignal, WithoutACheckpointDoesNotWaitForTheDisk)
{
    const CTemporaryFolder folder;
    EXPECT_THAT(EndAtWrite({"--iterations", c_sForEver, "--trajectory", folder.GetPath("run.xyz")}, "run.xyz", 3,
                           ";fsync:run.xyz:1:error=5"),
                StartsWith("error: interrupted"));
}

TEST(RecordingSignal, InAFrameLosesNothingOfARunWithACheckpoint)
{
    const CTemporaryFolder folder;
    const std::string sWhole = folder.GetPath("whole.xyz.gz");
    RunHeadless({Join(c_ManyAtoms, {"--iterations", "5", "--every", "2", "--trajectory", sWhole})});
    const CArguments outputs = {"--checkpoint", folder.GetPath("run.ckpt"),  "--every", "2",
                                "--trajectory", folder.GetPath("run.xyz.gz")};
    // In the frames of the start, of iteration 2 and of the end.
    for (const int write : {2, 11, 26})
    {
        EXPECT_THAT(EndAtWrite(Join({"--iterations", "5"}, outputs), "run.xyz.gz", write),
                    StartsWith("error: interrupted"));
        const CProgramResult shown = RunHeadless({{"--resume", folder.GetPath("run.ckpt"), "--iterations", "0"}});
        const int done = std::stoi(GetSummaryValue(shown.out, "iterations"));
        const CProgramResult resumed = RunHeadless(
            {Join({"--resume", folder.GetPath("run.ckpt"), "--iterations", std::to_string(5 - done)}, outputs)});
        EXPECT_EQ(resumed.exitCode, 0) << resumed.err;
        EXPECT_TRUE(ReadFile(folder.GetPath("run.xyz.gz")) == ReadFile(sWhole)) << write << ", " << done;
        EXPECT_EQ(folder.GetNames(), (CNames{"run.ckpt", "run.xyz.gz", "whole.xyz.gz"}));
    }
}
