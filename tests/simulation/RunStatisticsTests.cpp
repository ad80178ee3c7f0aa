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

TEST(FrameCap, AShortPassWaitsForTheRestOfThePeriod)
{
    EXPECT_EQ(GetFrameCapWait(1.0F), 15'666);
    EXPECT_EQ(GetFrameCapWait(16.5F), 166);
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
