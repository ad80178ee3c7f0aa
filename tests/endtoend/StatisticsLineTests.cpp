#include "tests/endtoend/StatisticsLine.h"

#include <gtest/gtest.h>

namespace
{
const std::wstring c_sLine = L"Iter = 61   1.25 ms = 800.00 FPS     velocity: min = 0.100   max = 5.000   "
                             L"tot = 640.000   avg = 2.500   collided = 12.50%";
} // namespace

// The other tests rely on this parser, so it must refuse wrong lines.
TEST(StatisticsLine, TheNumbersOfACompleteLineAreRead)
{
    const auto statistics = ParseStatisticsLine(c_sLine);
    ASSERT_TRUE(statistics.has_value());
    EXPECT_EQ(statistics->iterations, 61U);
    EXPECT_DOUBLE_EQ(statistics->millisecondsPerPass, 1.25);
    EXPECT_DOUBLE_EQ(statistics->framesPerSecond, 800.0);
    EXPECT_DOUBLE_EQ(statistics->collidedPercent, 12.5);
}

TEST(StatisticsLine, ALineWithAnExtraBlankOrAMissingDigitIsRefused)
{
    EXPECT_FALSE(ParseStatisticsLine(L" " + c_sLine));
    EXPECT_FALSE(ParseStatisticsLine(c_sLine.substr(0, c_sLine.size() - 1)));
    std::wstring sOtherDigits = c_sLine;
    sOtherDigits.replace(sOtherDigits.find(L"1.25"), 4, L"1.2");
    EXPECT_FALSE(ParseStatisticsLine(sOtherDigits));
}

TEST(StatisticsLine, ADescriptionOfAControlIsRefused)
{
    EXPECT_FALSE(ParseStatisticsLine(L"This button starts/stops the simulation"));
    EXPECT_FALSE(ParseStatisticsLine(L""));
}
