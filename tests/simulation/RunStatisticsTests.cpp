#include "simulation/FrameCap.h"
#include "simulation/RunStatistics.h"

#include <gtest/gtest.h>

#include <limits>

namespace
{

TEST(StatisticsLine, TheTextIsTheLineOfTheStatusBar)
{
    CRunStatistics statistics;
    statistics.totalIterations = 12345;
    statistics.iterationsSinceReport = 60;
    statistics.collisionsSinceReport = 96;
    statistics.timeSumMs = 75;
    statistics.velocities = {0.0124F, 3.5F, 276.48F, 1.08F};
    statistics.atomCount = 256;
    EXPECT_EQ(FormatStatisticsLine(statistics).Get(),
              L"Iter = 12345   1.25 ms = 800.00 FPS     velocity: min = 0.012   max = 3.500   tot = 276.480   "
              L"avg = 1.080   collided = 0.62%");
}

TEST(StatisticsLine, MoreCollisionsThanAtomsExceed100Percent)
{
    CRunStatistics statistics;
    statistics.totalIterations = 18'446'744'073'709'551'615U;
    statistics.iterationsSinceReport = 2;
    statistics.collisionsSinceReport = 320'000;
    statistics.timeSumMs = 40;
    statistics.atomCount = 20'000;
    EXPECT_EQ(FormatStatisticsLine(statistics).Get(),
              L"Iter = 18446744073709551615   20.00 ms = 50.00 FPS     velocity: min = 0.000   max = 0.000   "
              L"tot = 0.000   avg = 0.000   collided = 800.00%");
}

// In double, the average of these times would give another rate in the last digit.
TEST(StatisticsLine, TheAverageTimeHasSinglePrecision)
{
    CRunStatistics statistics;
    statistics.totalIterations = 7;
    statistics.iterationsSinceReport = 7;
    statistics.timeSumMs = 0.003F;
    statistics.atomCount = 1;
    EXPECT_EQ(
        FormatStatisticsLine(statistics).Get(),
        L"Iter = 7   0.00 ms = 2333333.36 FPS     velocity: min = 0.000   max = 0.000   tot = 0.000   avg = 0.000   "
        L"collided = 0.00%");
}

TEST(FrameCap, AShortPassWaitsForTheRestOfThePeriod)
{
    EXPECT_EQ(GetFrameCapWait(1.0F), 15'666);
    EXPECT_EQ(GetFrameCapWait(16.5F), 166);
}

// The times lie so that a period that differs by 0.00003 ms gives another number.
TEST(FrameCap, ThePeriodIsKnownToAHundredThousandth)
{
    EXPECT_EQ(GetFrameCapWait(0.00066F), 16'666);
    EXPECT_EQ(GetFrameCapWait(0.00068F), 16'665);
}

TEST(FrameCap, APassOfThePeriodOrLongerDoesNotWait)
{
    EXPECT_EQ(GetFrameCapWait(16.66668F), 0);
    EXPECT_EQ(GetFrameCapWait(20.0F), 0);
    EXPECT_EQ(GetFrameCapWait(std::numeric_limits<float>::infinity()), 0);
}

TEST(FrameCap, APassTooShortForTheClockDoesNotWait)
{
    EXPECT_EQ(GetFrameCapWait(0.0F), 0);
    EXPECT_EQ(GetFrameCapWait(-1.0F), 0);
}

} // namespace
