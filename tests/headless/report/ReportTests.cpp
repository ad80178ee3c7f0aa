#include "tests/headless/HeadlessTesting.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>

using testing::HasSubstr;
using testing::Not;

// Reports of whole runs. A browser looks at them in report-test.py.

namespace
{

using CArguments = std::vector<std::string>;
using CNames = std::vector<std::string>;

class Report : public testing::Test
{
protected:
    // The page of a run.
    std::string GetPage(CArguments arguments) const
    {
        arguments.insert(arguments.end(), {"--report", sReport});
        const CProgramResult result = RunProgram(arguments);
        EXPECT_EQ(result.exitCode, 0) << result.err;
        return ReadFile(sReport);
    }

    const CTemporaryFolder folder;
    const std::string sReport = folder.GetPath("report.html");
    const CArguments resume = {"--resume", folder.GetPath("run.ckpt"), "--checkpoint", folder.GetPath("run.ckpt")};
};

CArguments Join(CArguments first, const CArguments& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

} // namespace

TEST_F(Report, ARunInPiecesHasThePageOfTheWholeRun)
{
    const CArguments world = {"--seed", "7", "--start-at", "250,250", "--min-radius", "1"};
    const std::string sWhole = GetPage(Join(world, {"--iterations", "5000"}));
    GetPage(Join(world, {"--iterations", "10", "--checkpoint", folder.GetPath("run.ckpt")}));
    GetPage(Join(resume, {"--iterations", "2991"}));
    GetPage(Join(resume, {"--iterations", "1999"}));
    EXPECT_EQ(ReadFile(sReport) == sWhole, true);
    // The end is in the checkpoint too.
    EXPECT_EQ(GetPage(Join(resume, {"--iterations", "0"})) == sWhole, true);
}

TEST_F(Report, TellsWhereTheRunBeforeHadNone)
{
    RunProgram({"--seed", "7", "--iterations", "10", "--checkpoint", folder.GetPath("run.ckpt")});
    EXPECT_THAT(GetPage(Join(resume, {"--iterations", "5"})), HasSubstr("The courses begin at iteration 10:"));
    EXPECT_THAT(GetPage({"--iterations", "5"}), Not(HasSubstr("The courses begin")));
}

TEST_F(Report, RefusesARunOfWhichAPartIsMissing)
{
    RunProgram({"--iterations", "10", "--checkpoint", folder.GetPath("run.ckpt"), "--report", sReport});
    RunProgram(Join(resume, {"--iterations", "5"}));
    const CProgramResult result = RunProgram(Join(resume, {"--iterations", "5", "--report", sReport}));
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_THAT(result.err, HasSubstr("--report: contradicts the checkpoint of --resume"));
}

TEST_F(Report, NamesOfFilesAreTexts)
{
    const std::string sState = folder.WriteFile("a&'b.csv", "x,y,vx,vy,radius\n40,50,1,0,5\n");
    const std::string sPage =
        GetPage({"--load-state", sState, "--width", "100", "--height", "100", "--iterations", "3"});
    EXPECT_THAT(sPage, HasSubstr("a&amp;&#39;b.csv</td>"));
    EXPECT_THAT(sPage, Not(HasSubstr("a&'b")));
    EXPECT_THAT(sPage, HasSubstr("<title>1 atom, 3 iterations, seed "));
    EXPECT_THAT(sPage, HasSubstr("With less than 20 atoms, such a distance tells nothing."));
}

TEST_F(Report, AtomsAtRestAndNoIterationGiveAPageInWords)
{
    const std::string sState = folder.WriteFile("a.csv", "x,y,vx,vy,radius\n40,50,0,0,5\n60,50,0,0,5\n");
    const std::string sPage =
        GetPage({"--load-state", sState, "--width", "100", "--height", "100", "--iterations", "0"});
    EXPECT_THAT(sPage, HasSubstr("There is only one moment, iteration 0"));
    EXPECT_THAT(sPage, HasSubstr("Every atom is at rest"));
    EXPECT_THAT(sPage, Not(HasSubstr("<canvas")));
    EXPECT_THAT(sPage, Not(HasSubstr("nan")));
}

TEST_F(Report, NeedsAPlaceOfItsOwn)
{
    const CProgramResult onOutput = RunProgram({"--report", "-"});
    EXPECT_EQ(onOutput.exitCode, 2);
    EXPECT_THAT(onOutput.err, HasSubstr("--report: standard output is not allowed"));
    const CProgramResult twice = RunProgram({"--report", sReport, "--save-state", sReport});
    EXPECT_EQ(twice.exitCode, 2);
    EXPECT_THAT(twice.err, HasSubstr("is the same file as"));
    const CProgramResult noFolder = RunProgram({"--report", folder.GetPath("none/a.html"), "--iterations", "1e12"});
    EXPECT_EQ(noFolder.exitCode, 1);
    EXPECT_EQ(folder.GetNames(), CNames{});
}

TEST_F(Report, AnInterruptedRunLeavesNone)
{
    const std::atomic<int> interrupted = 130;
    const CProgramResult result = RunProgram({"--iterations", "1e12", "--report", sReport}, false, &interrupted);
    EXPECT_EQ(result.exitCode, 130);
    EXPECT_EQ(folder.GetNames(), CNames{});
}

// The letters of the name are no letters of any code page.
TEST_F(Report, HasAnyName)
{
    const std::string sName = folder.GetPath("Bericht-ü-\u6C17\u4F53.html");
    EXPECT_EQ(RunProgram({"--iterations", "2", "--report", sName}).exitCode, 0);
    EXPECT_THAT(ReadFile(sName), testing::StartsWith("<!DOCTYPE html>"));
}

#ifndef _WIN32
TEST_F(Report, ADiskThatIsFullCostsOnlyTheReport)
{
    const CProgramResult result =
        RunProgram({"--iterations", "2", "--report", "/dev/full", "--save-state", folder.GetPath("a.csv")});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.err, testing::StartsWith("error: /dev/full: "));
    EXPECT_EQ(GetSummaryValue(result.out, "iterations"), "2");
    EXPECT_EQ(folder.GetNames(), CNames{"a.csv"});
}
#endif
