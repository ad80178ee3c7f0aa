#include "headless/observed/CDurationHistogram.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

TEST(DurationHistogram, WithoutDurationsEveryPercentileIsZero)
{
    EXPECT_EQ(CDurationHistogram().GetPercentile(50), 0.0);
}

TEST(DurationHistogram, ShortDurationsAreExact)
{
    CDurationHistogram histogram;
    for (std::uint64_t u = 1; u <= 100; ++u)
    {
        histogram.Add(u * 20);
    }

    EXPECT_EQ(histogram.GetPercentile(50), 1000.0);
    EXPECT_EQ(histogram.GetPercentile(95), 1900.0);
    EXPECT_EQ(histogram.GetPercentile(1), 20.0);
    EXPECT_EQ(histogram.GetPercentile(100), 2000.0);
}

TEST(DurationHistogram, LongDurationsAreRightToAThousandth)
{
    for (std::uint64_t u = 1; u < std::numeric_limits<std::uint64_t>::max() / 3; u *= 3)
    {
        CDurationHistogram histogram;
        histogram.Add(u);
        EXPECT_NEAR(static_cast<double>(u), histogram.GetPercentile(50), static_cast<double>(u) / 1024.0);
    }
}

TEST(DurationHistogram, TheLongestDurationFits)
{
    CDurationHistogram histogram;
    histogram.Add(std::numeric_limits<std::uint64_t>::max());

    EXPECT_NEAR(1.8446744e19, histogram.GetPercentile(50), 1e16);
}

TEST(DurationHistogram, OneSlowIterationDoesNotMoveTheMedian)
{
    CDurationHistogram histogram;
    histogram.Add(10);
    histogram.Add(10);
    histogram.Add(1'000'000'000);

    EXPECT_EQ(histogram.GetPercentile(50), 10.0);
    EXPECT_NEAR(1e9, histogram.GetPercentile(95), 1e6);
}
