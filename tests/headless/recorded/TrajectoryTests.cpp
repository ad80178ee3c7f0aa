#include "tests/headless/Gunzip.h"
#include "tests/headless/HeadlessTesting.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

using testing::HasSubstr;
using testing::StartsWith;

namespace
{

using CArguments = std::vector<std::string>;
using CNames = std::vector<std::string>;

CArguments Join(CArguments first, const CArguments& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

CProgramResult RunWell(const CArguments& arguments)
{
    CProgramResult result = RunProgram(arguments);
    EXPECT_EQ(result.exitCode, 0) << result.err;
    return result;
}

// The iterations of the frames, with a blank behind each.
std::string GetIterations(const std::string& sTrajectory)
{
    constexpr std::string_view c_sKey = "iteration=";
    std::string sIterations;
    for (std::size_t u = sTrajectory.find(c_sKey); u != std::string::npos; u = sTrajectory.find(c_sKey, u + 1))
    {
        const std::size_t uNumber = u + c_sKey.size();
        sIterations += sTrajectory.substr(uNumber, sTrajectory.find(' ', uNumber) + 1 - uNumber);
    }
    return sIterations;
}

// The lines of the atoms of the last frame, as a state file has them.
std::string GetStateOfLastFrame(const std::string& sTrajectory)
{
    std::istringstream lines(sTrajectory.substr(sTrajectory.rfind("seed=")));
    std::string sLine;
    std::getline(lines, sLine);
    std::string sState = "x,y,vx,vy,radius\n";
    while (std::getline(lines, sLine))
    {
        std::istringstream words(sLine);
        std::vector<std::string> row(std::istream_iterator<std::string>(words), {});
        EXPECT_EQ(row.size(), 8U);
        EXPECT_EQ(row.at(0) + row.at(3) + row.at(6), "X00") << sLine;
        sState += row.at(1) + ',' + row.at(2) + ',' + row.at(4) + ',' + row.at(5) + ',' + row.at(7) + '\n';
    }
    return sState;
}

class Trajectory : public testing::Test
{
protected:
    // The trajectory of a small run.
    std::string Record(const CArguments& arguments, const std::string& sAtoms = "50") const
    {
        RunWell(Join({"--seed", "42", "--atoms", sAtoms, "--trajectory", sPath}, arguments));
        return ReadFile(sPath);
    }

    const CTemporaryFolder folder;
    const std::string sPath = folder.GetPath("run.xyz");
};

std::string GetUsageError(const CArguments& arguments)
{
    const CProgramResult result = RunProgram(arguments);
    EXPECT_EQ(result.exitCode, 2);
    return result.err.substr(0, result.err.find('\n'));
}

} // namespace

TEST_F(Trajectory, HasTheStartEveryNthIterationAndTheEnd)
{
    EXPECT_EQ(GetIterations(Record({"--iterations", "25", "--every", "10"})), "0 10 20 25 ");
    EXPECT_EQ(GetIterations(Record({"--iterations", "20", "--every", "10"})), "0 10 20 ");
    EXPECT_EQ(GetIterations(Record({"--iterations", "25", "--every", "1e3"})), "0 25 ");
    EXPECT_EQ(GetIterations(Record({"--iterations", "25"})), "0 25 ");
    EXPECT_EQ(GetIterations(Record({"--iterations", "0", "--every", "1"})), "0 ");
}

TEST_F(Trajectory, OfOneAtomIsThisText)
{
    const std::string sState = folder.WriteFile("state.csv", "x,y,vx,vy,radius\n40.5,50,0.1,-1e-05,5\n");
    RunWell({"--load-state", sState, "--width", "100", "--height", "200", "--seed", "18446744073709551615",
             "--iterations", "1", "--trajectory", sPath});

    const std::string sComment =
        "1\nLattice=\"100.0 0.0 0.0 0.0 200.0 0.0 0.0 0.0 1.0\" Properties=species:S:1:pos:R:3:"
        "velo:R:3:radius:R:1 pbc=\"F F F\" iteration=";
    EXPECT_EQ(ReadFile(sPath), sComment + "0 seed=18446744073709551615\nX 40.5 50 0 0.1 -1e-05 0 5\n" + sComment +
                                   "1 seed=18446744073709551615\nX 40.6 49.99999 0 0.1 -1e-05 0 5\n");
}

TEST_F(Trajectory, HasTheNumbersOfTheStateInItsOrder)
{
    const std::string sState = folder.GetPath("state.csv");
    // Longer than a piece of the file.
    const std::string sTrajectory = Record(
        {"--width", "2000", "--height", "2000", "--iterations", "9", "--every", "5", "--save-state", sState}, "5000");

    EXPECT_TRUE(GetStateOfLastFrame(sTrajectory) == ReadFile(sState));
    EXPECT_THAT(sTrajectory, StartsWith("5000\n"));
}

TEST_F(Trajectory, InGzipIsTheSameText)
{
    const std::string sGzip = folder.GetPath("run.xyz.gz");
    const CArguments end = {"--iterations", "25", "--every", "10"};
    const std::string sText = Record(end, "3000");
    RunWell(Join({"--seed", "42", "--atoms", "3000", "--trajectory", sGzip}, end));

    EXPECT_LT(ReadFile(sGzip).size(), sText.size() * 6 / 10);
    EXPECT_TRUE(Gunzip(ReadFile(sGzip)) == sText);
}

TEST_F(Trajectory, OfARunInPiecesIsThatOfTheWholeRun)
{
    const std::string sCheckpoint = folder.GetPath("run.ckpt");
    const CArguments resume = {"--resume", sCheckpoint, "--checkpoint", sCheckpoint, "--every", "7"};
    const CArguments world = {"--seed", "3", "--atoms", "300", "--start-at", "250,250", "--every", "7"};
    for (const std::string sName : {"part.xyz", "part.xyz.gz"})
    {
        const std::string sWhole = folder.GetPath("whole-" + sName);
        const CArguments part = {"--trajectory", folder.GetPath(sName)};
        RunWell(Join(world, {"--iterations", "100", "--trajectory", sWhole}));
        RunWell(Join(Join(world, part), {"--iterations", "1", "--checkpoint", sCheckpoint}));
        RunWell(Join(Join(resume, part), {"--iterations", "29"}));
        RunWell(Join(Join(resume, part), {"--iterations", "0"}));
        RunWell(Join(Join(resume, part), {"--iterations", "70"}));

        EXPECT_TRUE(ReadFile(folder.GetPath(sName)) == ReadFile(sWhole)) << sName;
    }
    EXPECT_EQ(folder.GetNames().size(), 5U);
}

TEST_F(Trajectory, OfARunThatWasInterruptedIsThatOfTheWholeRun)
{
    const std::string sCheckpoint = folder.GetPath("run.ckpt");
    const std::atomic<int> interrupted = 143;
    const CArguments part = {"--trajectory", folder.GetPath("part.xyz"), "--every", "3", "--checkpoint", sCheckpoint};
    EXPECT_EQ(RunProgram(Join({"--seed", "42", "--atoms", "50"}, part), false, &interrupted).exitCode, 143);
    RunWell(Join({"--resume", sCheckpoint, "--iterations", "10"}, part));

    EXPECT_EQ(ReadFile(folder.GetPath("part.xyz")), Record({"--iterations", "10", "--every", "3"}));
}

TEST_F(Trajectory, OfARunThatDidNotHaveItBeginsAtTheCheckpoint)
{
    const std::string sCheckpoint = folder.GetPath("run.ckpt");
    RunWell({"--seed", "42", "--iterations", "10", "--checkpoint", sCheckpoint});
    RunWell({"--resume", sCheckpoint, "--iterations", "15", "--trajectory", sPath, "--every", "20"});

    EXPECT_EQ(GetIterations(ReadFile(sPath)), "10 20 25 ");
}

TEST_F(Trajectory, OfAnotherRunIsNotContinued)
{
    const std::string sCheckpoint = folder.GetPath("run.ckpt");
    Record({"--iterations", "10", "--checkpoint", sCheckpoint});
    folder.WriteFile("run.xyz", "of another run");
    const CProgramResult result = RunProgram({"--resume", sCheckpoint, "--trajectory", sPath});

    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.err, StartsWith("error: " + sPath + ": cannot be continued: "));
    EXPECT_EQ(ReadFile(sPath), "of another run");
}

TEST_F(Trajectory, GoesToStandardOutputAndTheSummaryToStandardError)
{
    const CProgramResult result =
        RunWell({"--seed", "42", "--atoms", "50", "--iterations", "25", "--every", "10", "--trajectory", "-"});

    EXPECT_EQ(result.out, Record({"--iterations", "25", "--every", "10"}));
    EXPECT_EQ(GetSummaryValue(result.err, "iterations"), "25");
}

TEST_F(Trajectory, TakesANameWithAnyLetters)
{
    const std::string sName = folder.GetPath("\xD0\xB3\xD0\xB0\xD0\xB7 \xE6\xB0\x94.xyz.gz");
    RunWell({"--atoms", "5", "--iterations", "2", "--trajectory", sName});

    EXPECT_EQ(GetIterations(Gunzip(ReadFile(sName))), "0 2 ");
}

TEST_F(Trajectory, OptionsAreCheckedBeforeTheRun)
{
    EXPECT_EQ(GetUsageError({"--every", "5"}), "error: --every: needs --trajectory, which names the file");
    EXPECT_EQ(GetUsageError({"--trajectory", sPath, "--every", "0"}),
              "error: --every: '0' is not allowed; allowed is a whole number from 1 to 1000000000000");
    EXPECT_THAT(GetUsageError({"--trajectory", sPath, "--stats", sPath}), HasSubstr("is the same file as"));
    EXPECT_THAT(GetUsageError({"--trajectory", "-", "--stats", "-"}), HasSubstr("is the same file as"));
    EXPECT_THAT(GetUsageError({"--trajectory", sPath, "--checkpoint", sPath + ".partial"}),
                HasSubstr(" is the same file as the growing file of --trajectory: "));
    const std::string sNowhere = folder.GetPath("none/run.xyz");
    const CProgramResult result = RunProgram({"--trajectory", sNowhere, "--iterations", "1000000000000"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.err, "error: " + sNowhere + ": cannot be written: its folder does not exist\n");
    EXPECT_EQ(folder.GetNames(), CNames{});
}
