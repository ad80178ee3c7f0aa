#include "headless/observed/CSpeedHistogram.h"
#include "tests/headless/HeadlessTesting.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

TEST(SpeedHistogram, ABinHasItsLowerEdgeAndNotItsUpperOne)
{
    CSpeedHistogram histogram(4, 2.0);
    for (const double speed : {0.0, 0.25, 0.5, 0.75, 0.999, 1.5})
    {
        histogram.Add(speed);
    }

    EXPECT_EQ(histogram.GetCount(0), 2U);
    EXPECT_EQ(histogram.GetCount(1), 3U);
    EXPECT_EQ(histogram.GetCount(2), 0U);
    EXPECT_EQ(histogram.GetCount(3), 1U);
    EXPECT_EQ(histogram.GetFaster(), 0U);
    EXPECT_EQ(histogram.GetTotal(), 6U);
}

TEST(SpeedHistogram, SpeedsFromTheRangeOnAreFaster)
{
    CSpeedHistogram histogram(4, 2.0);
    histogram.Add(std::nextafter(2.0, 0.0));
    histogram.Add(2.0);
    histogram.Add(1e300);
    histogram.Add(std::numeric_limits<double>::infinity());
    histogram.Add(std::numeric_limits<double>::quiet_NaN());

    EXPECT_EQ(histogram.GetCount(3), 1U);
    EXPECT_EQ(histogram.GetFaster(), 4U);
    EXPECT_EQ(histogram.GetTotal(), 5U);
}

TEST(SpeedHistogram, EdgesDivideTheRangeEvenly)
{
    const CSpeedHistogram histogram(5, 4.0);

    EXPECT_EQ(histogram.GetBinCount(), 5U);
    EXPECT_EQ(histogram.GetEdge(0), 0.0);
    EXPECT_EQ(histogram.GetEdge(1), 0.8);
    EXPECT_EQ(histogram.GetEdge(5), 4.0);
    EXPECT_EQ(histogram.GetRange(), 4.0);
}

// Where the division is rounded to the other side of an edge, the edge decides.
TEST(SpeedHistogram, AnEdgeAndTheNumbersBesideItCountOnTheRightSide)
{
    for (const double range : {0.1, 1.0, 4.33, 1e-30, 1e30})
    {
        for (const std::size_t uBins : {1U, 3U, 7U, 50U, 999U})
        {
            for (std::size_t uBin = 1; uBin < uBins; ++uBin)
            {
                CSpeedHistogram histogram(uBins, range);
                histogram.Add(histogram.GetEdge(uBin));
                histogram.Add(std::nextafter(histogram.GetEdge(uBin), 0.0));

                ASSERT_EQ(histogram.GetCount(uBin), 1U) << range << ' ' << uBins << ' ' << uBin;
                ASSERT_EQ(histogram.GetCount(uBin - 1), 1U) << range << ' ' << uBins << ' ' << uBin;
            }
        }
    }
}

TEST(SpeedHistogram, TheDensityIsTheShareDividedByTheWidth)
{
    CSpeedHistogram histogram(4, 2.0);
    EXPECT_EQ(histogram.GetDensity(0), 0.0);
    for (const double speed : {0.1, 0.2, 1.0, 5.0})
    {
        histogram.Add(speed);
    }

    EXPECT_EQ(histogram.GetDensity(0), 1.0);
    EXPECT_EQ(histogram.GetDensity(1), 0.0);
    EXPECT_EQ(histogram.GetDensity(2), 0.5);
}

TEST(SpeedHistogram, CountsTheSpeedOfEveryAtom)
{
    CAtoms atoms = MakeAtoms({MakeAtom(1, 1, 1), MakeAtom(2, 2, 1), MakeAtom(3, 3, 1)});
    atoms[0].speed = 0.5F;
    atoms[1].speed = 1.75F;
    atoms[2].speed = 0.75F;
    CSpeedHistogram histogram(4, 1.0);
    histogram.Add(atoms);

    EXPECT_EQ(histogram.GetCount(2), 1U);
    EXPECT_EQ(histogram.GetCount(3), 1U);
    EXPECT_EQ(histogram.GetFaster(), 1U);
}
