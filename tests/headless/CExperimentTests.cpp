#include "headless/CExperiment.h"
#include "headless/HeadlessMain.h"
#include "tests/headless/HeadlessTesting.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <iostream>
#include <sstream>

using testing::HasSubstr;
using testing::StartsWith;

namespace
{

std::string RunWell(const std::vector<std::string>& arguments)
{
    const CProgramResult result = RunProgram(arguments);
    EXPECT_EQ(result.exitCode, 0) << result.err;
    return result.out;
}

std::string GetHash(const std::vector<std::string>& arguments)
{
    return GetSummaryValue(RunWell(arguments), "state hash");
}

// Two atoms that meet, and one that bounces at the walls.
const std::string c_sMeeting = "x,y,vx,vy,radius\n40,50,1,0,5\n60,50,-1,0.25,5\n20,20,-0.5,-0.75,3\n";

} // namespace

// The numbers hold in every build and on every machine: a change of one bit in the simulation, the random numbers or
// the population makes this fail.
TEST(Experiment, ASeedGivesTheSameWorldEverywhere)
{
    EXPECT_EQ(GetHash({"--seed", "42"}), "0975cc9dea5e75eb");
    EXPECT_EQ(GetHash({"--seed", "7", "--width", "9999", "--height", "9999", "--atoms", "20000", "--min-radius", "1",
                       "--max-radius", "32", "--iterations", "50"}),
              "906f2c60f31a66ab");
    EXPECT_EQ(GetHash({"--seed", "7", "--width", "9999", "--height", "9999", "--atoms", "20000", "--min-radius", "1",
                       "--max-radius", "32", "--iterations", "50", "--threads", "3"}),
              "906f2c60f31a66ab");
    EXPECT_EQ(GetHash({"--seed", "3", "--start-at", "250,250", "--iterations", "300"}), "cc86624dff9f1fc4");
}

TEST(Experiment, TheSameSeedTwiceGivesTheSameFiles)
{
    const CTemporaryFolder folder;
    for (const std::string sName : {"a", "b"})
    {
        RunWell({"--seed", "9", "--iterations", "100", "--save-state", folder.GetPath(sName + ".csv"), "--stats",
                 folder.GetPath(sName + "-stats.csv"), "--picture", folder.GetPath(sName + ".png")});
    }

    EXPECT_EQ(ReadFile(folder.GetPath("b.csv")), ReadFile(folder.GetPath("a.csv")));
    EXPECT_EQ(ReadFile(folder.GetPath("b-stats.csv")), ReadFile(folder.GetPath("a-stats.csv")));
    EXPECT_EQ(ReadFile(folder.GetPath("b.png")), ReadFile(folder.GetPath("a.png")));
    EXPECT_NE(ReadFile(folder.GetPath("a.csv")), "");
}

TEST(Experiment, WithoutASeedARandomOneIsPrintedThatRepeatsTheRun)
{
    const std::string sFirst = RunWell({"--iterations", "20"});
    const std::string sSecond = RunWell({"--iterations", "20"});

    EXPECT_NE(GetSummaryValue(sSecond, "seed"), GetSummaryValue(sFirst, "seed"));
    // A 64-bit float holds it, so that spreadsheets and JSON do.
    EXPECT_LT(std::stoull(GetSummaryValue(sFirst, "seed")), 1ULL << 53U);
    EXPECT_LT(std::stoull(GetSummaryValue(sSecond, "seed")), 1ULL << 53U);
    EXPECT_EQ(GetHash({"--iterations", "20", "--seed", GetSummaryValue(sFirst, "seed")}),
              GetSummaryValue(sFirst, "state hash"));
}

TEST(Experiment, SavingLoadingAndSavingAgainGivesTheSameBytes)
{
    const CTemporaryFolder folder;
    const std::string sFirst = folder.GetPath("first.csv");
    const std::string sSecond = folder.GetPath("second.csv");
    const std::string sSaved = GetHash({"--seed", "5", "--atoms", "5000", "--width", "2000", "--height", "1500",
                                        "--iterations", "30", "--save-state", sFirst});
    const std::string sLoaded = GetHash(
        {"--load-state", sFirst, "--width", "2000", "--height", "1500", "--iterations", "0", "--save-state", sSecond});

    EXPECT_EQ(sLoaded, sSaved);
    EXPECT_EQ(ReadFile(sSecond), ReadFile(sFirst));
    EXPECT_THAT(ReadFile(sFirst), StartsWith("x,y,vx,vy,radius\n"));
}

// The seeds differ on purpose: the second half must not use a random number.
TEST(Experiment, HalfARunSavedAndContinuedGivesTheWholeRun)
{
    const CTemporaryFolder folder;
    const std::vector<std::string> world = {"--width", "600", "--height", "400"};
    const auto run = [&world](std::vector<std::string> arguments) {
        arguments.insert(arguments.end(), world.begin(), world.end());
        RunWell(arguments);
    };
    run({"--seed", "11", "--atoms", "900", "--iterations", "400", "--save-state", folder.GetPath("whole.csv")});
    run({"--seed", "11", "--atoms", "900", "--iterations", "200", "--save-state", folder.GetPath("half.csv")});
    run({"--seed", "99", "--load-state", folder.GetPath("half.csv"), "--iterations", "200", "--save-state",
         folder.GetPath("continued.csv")});

    EXPECT_NE(ReadFile(folder.GetPath("whole.csv")), ReadFile(folder.GetPath("half.csv")));
    EXPECT_EQ(ReadFile(folder.GetPath("continued.csv")), ReadFile(folder.GetPath("whole.csv")));
}

TEST(Experiment, TheStatisticsHaveARowForEachIteration)
{
    const CTemporaryFolder folder;
    const std::string sState = folder.WriteFile("a.csv", c_sMeeting);
    const std::string sStats = folder.GetPath("stats.csv");
    RunWell({"--load-state", sState, "--width", "100", "--height", "100", "--iterations", "6", "--stats", sStats});

    const std::string sText = ReadFile(sStats);
    EXPECT_THAT(sText, StartsWith("iteration,collisions,min_velocity,max_velocity,tot_velocity,avg_velocity\n"
                                  "1,0,0.9013878,1.0307764,2.9321642,0.9773881\n"));
    EXPECT_EQ(std::count(sText.begin(), sText.end(), '\n'), 7);
    EXPECT_THAT(sText, HasSubstr("\n6,1,"));
}

TEST(Experiment, StateOrStatisticsOnStandardOutputMoveTheSummaryToStandardError)
{
    const CTemporaryFolder folder;
    const std::string sFile = folder.GetPath("a.csv");
    RunWell({"--seed", "4", "--iterations", "10", "--save-state", sFile});

    const CProgramResult state = RunProgram({"--seed", "4", "--iterations", "10", "--save-state", "-"});
    EXPECT_EQ(state.exitCode, 0);
    EXPECT_EQ(state.out, ReadFile(sFile));
    EXPECT_EQ(GetSummaryValue(state.err, "iterations"), "10");
    const CProgramResult stats = RunProgram({"--seed", "4", "--iterations", "10", "--stats", "-"});
    EXPECT_EQ(stats.exitCode, 0);
    EXPECT_EQ(std::count(stats.out.begin(), stats.out.end(), '\n'), 11);
    EXPECT_EQ(GetSummaryValue(stats.err, "iterations"), "10");
}

TEST(Experiment, TheSummaryHasEveryValue)
{
    const CTemporaryFolder folder;
    const std::string sState = folder.WriteFile("a.csv", c_sMeeting);
    const std::string sSummary =
        RunWell({"--load-state", sState, "--seed", "12", "--iterations", "6", "--width", "300", "--height", "200"});

    EXPECT_EQ(GetSummaryValue(sSummary, "seed"), "12");
    EXPECT_EQ(GetSummaryValue(sSummary, "width"), "300");
    EXPECT_EQ(GetSummaryValue(sSummary, "height"), "200");
    EXPECT_EQ(GetSummaryValue(sSummary, "atoms"), "3");
    EXPECT_EQ(GetSummaryValue(sSummary, "smallest radius"), "3");
    EXPECT_EQ(GetSummaryValue(sSummary, "largest radius"), "5");
    EXPECT_EQ(GetSummaryValue(sSummary, "start"), sState);
    EXPECT_EQ(GetSummaryValue(sSummary, "colour mode"), "speed");
    EXPECT_EQ(GetSummaryValue(sSummary, "colour 1"), "ff0000");
    EXPECT_EQ(GetSummaryValue(sSummary, "colour 2"), "808080");
    EXPECT_EQ(GetSummaryValue(sSummary, "colour 3"), "00ff00");
    EXPECT_EQ(GetSummaryValue(sSummary, "factor 1"), "0.75");
    EXPECT_EQ(GetSummaryValue(sSummary, "factor 2"), "none");
    EXPECT_EQ(GetSummaryValue(sSummary, "factor 3"), "1.25");
    EXPECT_EQ(GetSummaryValue(sSummary, "background"), "000000");
    EXPECT_EQ(GetSummaryValue(sSummary, "iterations"), "6");
    EXPECT_NE(GetSummaryValue(sSummary, "median time (ms)"), "");
    EXPECT_NE(GetSummaryValue(sSummary, "95th percentile time (ms)"), "");
    EXPECT_EQ(GetSummaryValue(sSummary, "collisions per iteration (%)"), "5.56");
    EXPECT_EQ(GetSummaryValue(sSummary, "minimum speed"), "0.901388");
    EXPECT_THAT(GetSummaryValue(sSummary, "maximum speed"), StartsWith("1.0"));
    EXPECT_THAT(GetSummaryValue(sSummary, "average speed"), StartsWith("0.97738"));
    EXPECT_THAT(GetSummaryValue(sSummary, "drift of the total speed"), HasSubstr("0.0000"));
    EXPECT_THAT(GetSummaryValue(sSummary, "drift of the total speed (%)"), HasSubstr("0.0000"));
    EXPECT_EQ(GetSummaryValue(sSummary, "overlapping pairs"), "0");
    EXPECT_THAT(GetSummaryValue(sSummary, "largest overlap"), StartsWith("0.00"));
    EXPECT_EQ(GetSummaryValue(sSummary, "atoms outside"), "0");
    EXPECT_EQ(GetSummaryValue(sSummary, "state hash").size(), 16U);
}

TEST(Experiment, TheSummaryFindsOverlapsAndAtomsOutside)
{
    const CTemporaryFolder folder;
    const std::string sState = folder.WriteFile("a.csv", "x,y,vx,vy,radius\n50,50,0,0,5\n58,50,0,0,5\n3,50,0,0,5\n");
    const std::string sSummary =
        RunWell({"--load-state", sState, "--width", "100", "--height", "100", "--iterations", "0"});

    EXPECT_EQ(GetSummaryValue(sSummary, "overlapping pairs"), "1");
    EXPECT_EQ(GetSummaryValue(sSummary, "largest overlap"), "2.000000");
    EXPECT_EQ(GetSummaryValue(sSummary, "atoms outside"), "1");
    EXPECT_EQ(GetSummaryValue(sSummary, "median time (ms)"), "none");
    EXPECT_EQ(GetSummaryValue(sSummary, "collisions per iteration (%)"), "none");
}

TEST(Experiment, OverlapsCanBeLeftUncounted)
{
    const std::string sSummary =
        RunWell({"--seed", "1", "--start-at", "100,100", "--iterations", "1", "--no-overlaps"});

    EXPECT_EQ(GetSummaryValue(sSummary, "overlapping pairs"), "not counted");
    EXPECT_EQ(GetSummaryValue(sSummary, "largest overlap"), "not counted");
}

TEST(Experiment, CountingOverlapsTakesNoLongerThanTheRunOrTwoSeconds)
{
    using std::chrono::hours;
    using std::chrono::milliseconds;
    using std::chrono::seconds;
    EXPECT_EQ(GetOverlapTimeLimit(milliseconds(63)), seconds(2));
    EXPECT_EQ(GetOverlapTimeLimit(seconds(2)), seconds(2));
    EXPECT_EQ(GetOverlapTimeLimit(hours(3)), hours(3));
}

// The progress appears within the first moments and ends as it began: with an empty line.
TEST(Experiment, TheProgressOfTheCountIsShown)
{
    const CProgramResult result =
        RunProgram({"--seed", "1", "--atoms", "20000", "--start-at", "100,100", "--iterations", "0"}, true);

    EXPECT_EQ(result.exitCode, 0);
    EXPECT_THAT(result.err, HasSubstr("/20000"));
    EXPECT_THAT(result.err, testing::EndsWith("\r"));
}

TEST(Experiment, AStateIsReadFromStandardInput)
{
    const CTemporaryFolder folder;
    const std::string sFile = folder.WriteFile("a.csv", c_sMeeting);
    std::istringstream input(c_sMeeting);
    std::streambuf* const pBefore = std::cin.rdbuf(input.rdbuf());
    const std::string sSummary =
        RunWell({"--load-state", "-", "--width", "100", "--height", "100", "--iterations", "6"});
    std::cin.rdbuf(pBefore);

    EXPECT_EQ(GetSummaryValue(sSummary, "start"), "standard input");
    EXPECT_EQ(GetSummaryValue(sSummary, "state hash"),
              GetHash({"--load-state", sFile, "--width", "100", "--height", "100", "--iterations", "6"}));
}

TEST(Experiment, EveryAtomStartsAtTheStartPoint)
{
    const CTemporaryFolder folder;
    const std::string sFile = folder.GetPath("a.csv");
    RunWell({"--seed", "1", "--atoms", "3", "--start-at", "100,200", "--iterations", "0", "--save-state", sFile});

    const std::string sText = ReadFile(sFile);
    std::size_t uRows = 0;
    for (std::size_t u = sText.find("\n100,200,"); u != std::string::npos; u = sText.find("\n100,200,", u + 1))
    {
        ++uRows;
    }
    EXPECT_EQ(uRows, 3U);
}

TEST(Experiment, AnInterruptedRunSaysSoAndLeavesNoNewFile)
{
    const CTemporaryFolder folder;
    const std::string sStats = folder.WriteFile("stats.csv", "old");
    const std::atomic<int> interrupted = 130;

    const CProgramResult result =
        RunProgram({"--iterations", "1000000000000", "--stats", sStats, "--save-state", folder.GetPath("a.csv")}, false,
                   &interrupted);
    EXPECT_EQ(result.exitCode, 130);
    EXPECT_EQ(result.err, "error: interrupted after 0 of 1000000000000 iterations\n");
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(ReadFile(sStats), "old");
    EXPECT_EQ(folder.GetNames(), std::vector<std::string>{"stats.csv"});
}

TEST(Experiment, StandardOutputThatCannotBeWrittenIsAnError)
{
    const CTemporaryFolder folder;
    std::ostream broken(nullptr);
    std::ostringstream err;

    EXPECT_EQ(HeadlessMain({"--help"}, CConsole{broken, err, false, nullptr}), 1);
    EXPECT_EQ(err.str(), "error: standard output: cannot be written\n");
    err.str("");
    EXPECT_EQ(HeadlessMain({"--iterations", "1"}, CConsole{broken, err, false, nullptr}), 1);
    EXPECT_EQ(err.str(), "error: the summary cannot be written\n");
    err.str("");
    EXPECT_EQ(HeadlessMain({"--iterations", "1", "--save-state", "-"}, CConsole{broken, err, false, nullptr}), 1);
    EXPECT_THAT(err.str(), testing::EndsWith("\nerror: standard output: cannot be written\n"));
    EXPECT_EQ(GetSummaryValue(err.str(), "iterations"), "1");
}
