#include "tests/classes/core/CEnvironmentChange.h"
#include "tests/headless/CHeadlessProcess.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <unistd.h>

using testing::HasSubstr;
using testing::StartsWith;

namespace fs = std::filesystem;

namespace
{

using CArguments = std::vector<std::string>;

struct COutput
{
    std::string sOption;
    std::string sName;
};

const std::array<COutput, 8> c_Outputs = {COutput{"--save-state", "state.csv"}, COutput{"--stats", "stats.csv"},
                                          COutput{"--histogram", "speeds.csv"}, COutput{"--trajectory", "run.xyz"},
                                          COutput{"--video", "run.y4m"},        COutput{"--trajectory", "run.xyz.gz"},
                                          COutput{"--picture", "gas.png"},      COutput{"--checkpoint", "run.ckpt"}};

// A run whose file cannot be written says so and changes nothing.
void ExpectError(const COutput& output, CLaunch launch, const std::string& sReason)
{
    const CTemporaryFolder folder;
    const CTemporaryFolder elsewhere; // for the rescued state
    const CEnvironmentChange temporary("TMPDIR", elsewhere.GetPath("").c_str());
    const std::string sPath = folder.WriteFile(output.sName, "old");
    launch.arguments = {"--seed", "1", "--iterations", "100", output.sOption, sPath};
    const CProgramResult result = RunHeadless(launch);
    EXPECT_EQ(result.exitCode, 1) << launch.faults;
    EXPECT_THAT(result.err, StartsWith("error: " + sPath + ": cannot be written: " + sReason)) << launch.faults;
    EXPECT_EQ(ReadFile(sPath), "old") << launch.faults;
    for (const std::string& sName : folder.GetNames())
    {
        // Growing files are kept as far as they came.
        const bool bGrowing =
            output.sOption != "--save-state" && output.sOption != "--picture" && output.sOption != "--checkpoint";
        EXPECT_TRUE(sName == output.sName || (bGrowing && sName == output.sName + ".partial")) << sName;
    }
}

CProgramResult RunWithOutput(int file, const CArguments& arguments)
{
    CLaunch launch{arguments};
    launch.out = file;
    CProgramResult result = RunHeadless(launch);
    close(file);
    return result;
}

int OpenClosedPipe()
{
    std::array<int, 2> ends{};
    EXPECT_EQ(pipe2(ends.data(), O_CLOEXEC), 0);
    close(ends[0]);
    return ends[1];
}

void ExpectOutputError(int file, const CArguments& arguments, const std::string& sError)
{
    const CProgramResult result = RunWithOutput(file, arguments);
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.err, HasSubstr("error: " + sError)); // behind the summary
}

} // namespace

TEST(Fault, OfEachCallIsAnErrorAndLeavesTheOldFile)
{
    for (const COutput& output : c_Outputs)
    {
        // The first file is made and closed by the check before the run.
        for (const char* const sCall : {"open:1", "open:2", "write:1", "fsync:1", "close:2", "rename:1"})
        {
            const std::string sFunction(sCall, std::strchr(sCall, ':'));
            CLaunch launch;
            launch.faults = sFunction + ":" + output.sName + ":" + (sCall + sFunction.size() + 1) + ":error=5";
            ExpectError(output, launch, "Input/output error");
        }
    }
}

TEST(Fault, BetweenTheIterationsLosesNothingOfARunWithACheckpoint)
{
    const CTemporaryFolder folder;
    const std::string sCheckpoint = folder.GetPath("run.ckpt");
    CLaunch launch{{"--seed", "1", "--iterations", "9", "--checkpoint", sCheckpoint, "--picture",
                    folder.GetPath("gas.png"), "--picture-every", "4"}};
    launch.faults = "open:gas-4:1:error=28";
    const CProgramResult result = RunHeadless(launch);
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.err, "error: " + folder.GetPath("gas-4.png") +
                              ": cannot be written: No space left on device; --resume " + sCheckpoint +
                              " continues the run\n");

    const CProgramResult resumed = RunHeadless({{"--resume", sCheckpoint, "--iterations", "5"}});
    EXPECT_EQ(GetSummaryValue(resumed.out, "iterations"), "9");
    EXPECT_EQ(GetSummaryValue(resumed.out, "state hash"),
              GetSummaryValue(RunHeadless({{"--seed", "1", "--iterations", "9"}}).out, "state hash"));
}

TEST(Fault, AFullDiskIsAnErrorWhereverItStrikes)
{
    const CTemporaryFolder folder;
    const CTemporaryFolder elsewhere; // for the rescued state
    const CEnvironmentChange temporary("TMPDIR", elsewhere.GetPath("").c_str());
    const std::string sPath = folder.WriteFile("state.csv", "old");
    int call = 0;
    CProgramResult result{1, "", ""};
    while (result.exitCode == 1)
    {
        ++call;
        CLaunch launch{{"--atoms", "10000", "--iterations", "0", "--save-state", sPath}};
        launch.faults = "write:state.csv:" + std::to_string(call) + ":error=28";
        EXPECT_EQ(ReadFile(sPath), "old") << call;
        EXPECT_EQ(folder.GetNames().size(), 1U) << call;
        result = RunHeadless(launch);
    }
    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_GT(call, 4);
}

TEST(Fault, AFileThatGrowsBeyondTheLimitOfItsUserIsAnError)
{
    for (const COutput& output : c_Outputs)
    {
        CLaunch launch;
        launch.maxFileSize = 1000;
        ExpectError(output, launch, "File too large");
    }
}

TEST(Fault, AFolderThatBelongsToAnotherUserIsAnError)
{
    for (const COutput& output : c_Outputs)
    {
        const CTemporaryFolder folder;
        const std::string sFolder = folder.GetPath("locked");
        const std::string sPath = sFolder + "/" + output.sName;
        fs::create_directory(sFolder);
        folder.WriteFile("locked/" + output.sName, "old");
        fs::permissions(sFolder, fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_read |
                                     fs::perms::others_exec);
        CLaunch launch{{"--iterations", "1", output.sOption, sPath}};
        launch.bOtherUser = true;
        const CProgramResult result = RunHeadless(launch);
        fs::permissions(sFolder, fs::perms::owner_all);

        EXPECT_EQ(result.exitCode, 1);
        EXPECT_THAT(result.err, HasSubstr(output.sName + ": cannot be written: Permission denied"));
        EXPECT_EQ(ReadFile(sPath), "old");
        EXPECT_EQ(std::distance(fs::directory_iterator(sFolder), fs::directory_iterator()), 1);
    }
}

TEST(StandardOutput, ThatIsFullIsAnError)
{
    const auto open = [] { return ::open("/dev/full", O_WRONLY | O_CLOEXEC); };
    ExpectOutputError(open(), {"--iterations", "1", "--stats", "-"}, "standard output: cannot be written");
    ExpectOutputError(open(), {"--iterations", "1", "--histogram", "-"}, "standard output: cannot be written");
    ExpectOutputError(open(), {"--iterations", "1", "--save-state", "-"}, "standard output: cannot be written");
    ExpectOutputError(open(), {"--iterations", "1", "--trajectory", "-"}, "standard output: cannot be written");
    ExpectOutputError(open(), {"--iterations", "1", "--video", "-"}, "standard output: cannot be written");
    ExpectOutputError(open(), {"--iterations", "1"}, "the summary cannot be written");
}

// The reader has gone away. By default, the system would end the program without a word and with its files half
// written.
TEST(StandardOutput, ThatIsAClosedPipeIsAnError)
{
    ExpectOutputError(OpenClosedPipe(), {"--iterations", "1", "--stats", "-"}, "standard output: cannot be written");
    ExpectOutputError(OpenClosedPipe(), {"--iterations", "1", "--histogram", "-"},
                      "standard output: cannot be written");
    ExpectOutputError(OpenClosedPipe(), {"--iterations", "1", "--save-state", "-"},
                      "standard output: cannot be written");
    ExpectOutputError(OpenClosedPipe(), {"--iterations", "1", "--trajectory", "-"},
                      "standard output: cannot be written");
    ExpectOutputError(OpenClosedPipe(), {"--iterations", "1", "--video", "-"}, "standard output: cannot be written");
    ExpectOutputError(OpenClosedPipe(), {"--iterations", "1"}, "the summary cannot be written");
}
