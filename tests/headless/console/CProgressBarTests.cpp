#include "headless/console/CProgressBar.h"
#include "tests/headless/HeadlessTesting.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

TEST(ProgressBar, ShowsShareCountRateAndTimeLeft)
{
    EXPECT_EQ(FormatProgress(500, 1000, 2.0, "iterations"),
              "[###############...............] 50%  500/1000  250 iterations/s  2 s left");
    EXPECT_EQ(FormatProgress(1, 1000, 2.0, "iterations"),
              "[..............................] 0%  1/1000  0.5 iterations/s  33 min 18 s left");
    EXPECT_EQ(FormatProgress(1, 10000, 2.0, "iterations"),
              "[..............................] 0%  1/10000  0.5 iterations/s  5 h 33 min left");
    EXPECT_EQ(FormatProgress(1000, 1000, 2.0, "iterations"),
              "[##############################] 100%  1000/1000  500 iterations/s  0 s left");
}

TEST(ProgressBar, WithoutAnIterationOrATimeThereIsNoForecast)
{
    EXPECT_EQ(FormatProgress(0, 1000, 2.0, "iterations"), "[..............................] 0%  0/1000");
    EXPECT_EQ(FormatProgress(5, 1000, 0.0, "iterations"), "[..............................] 0%  5/1000");
    EXPECT_EQ(FormatProgress(0, 0, 1.0, "iterations"), "[##############################] 100%  0/0");
}

TEST(ProgressBar, TimesAboveAYearAreNotSpelledOut)
{
    EXPECT_THAT(FormatProgress(1, 1'000'000'000'000, 1000.0, "iterations"), EndsWith("over a year left"));
}

TEST(ProgressBar, WipesItsLineAtTheEnd)
{
    std::ostringstream terminal;
    {
        CProgressBar progress(&terminal, 10, "iterations");
        progress.Update(1);
        EXPECT_THAT(terminal.str(), HasSubstr("1/10"));
    }
    const std::string sShown = terminal.str();
    const std::size_t uLast = sShown.rfind('\r', sShown.size() - 2);
    EXPECT_THAT(sShown, EndsWith("\r"));
    EXPECT_EQ(sShown.find_first_not_of(' ', uLast + 1) == sShown.size() - 1 ? std::string::npos : 0, std::string::npos);
}

TEST(ProgressBar, IsShownOnlyOnATerminal)
{
    const std::vector<std::string> arguments = {"--seed", "1", "--iterations", "5"};

    EXPECT_THAT(RunProgram(arguments, true).err, HasSubstr("/5"));
    EXPECT_EQ(RunProgram(arguments, false).err, "");
    EXPECT_EQ(RunProgram({"--seed", "1", "--iterations", "5", "--quiet"}, true).err, "");
    EXPECT_THAT(RunProgram(arguments, true).out, Not(HasSubstr("iterations/s")));
}
