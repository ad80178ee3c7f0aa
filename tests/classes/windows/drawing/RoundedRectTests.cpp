#include "classes/windows/drawing/RoundedRect.h"

#include <gtest/gtest.h>

TEST(RoundedRect, TheMiddleIsFullTheOutsideEmptyAndTheCornersAreSmoothAndSymmetric)
{
    EXPECT_EQ(GetRoundedCoverage(10, 10, 20, 20, 5), 1.0);
    EXPECT_EQ(GetRoundedCoverage(0, 10, 20, 20, 5), 1.0) << "the straight edge";
    EXPECT_EQ(GetRoundedCoverage(0, 0, 20, 20, 5), 0.0);
    EXPECT_EQ(GetRoundedCoverage(-1, 10, 20, 20, 5), 0.0);
    EXPECT_EQ(GetRoundedCoverage(20, 10, 20, 20, 5), 0.0);
    for (int y = 0; y < 5; ++y)
    {
        for (int x = 0; x < 5; ++x)
        {
            const double dCoverage = GetRoundedCoverage(x, y, 20, 20, 5);
            EXPECT_DOUBLE_EQ(GetRoundedCoverage(19 - x, y, 20, 20, 5), dCoverage);
            EXPECT_DOUBLE_EQ(GetRoundedCoverage(x, 19 - y, 20, 20, 5), dCoverage);
            EXPECT_DOUBLE_EQ(GetRoundedCoverage(y, x, 20, 20, 5), dCoverage);
        }
    }
}
