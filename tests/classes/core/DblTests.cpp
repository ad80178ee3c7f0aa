#include "classes/core/Dbl.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace
{

constexpr double c_dEps = 1e-10;

TEST(Dbl, BiggerAndSmallerNeedMoreThanTheTolerance)
{
    static_assert(Dbl_IsBigger(1.0 + 2e-10, 1.0, c_dEps));
    static_assert(!Dbl_IsBigger(1.0 + 0.5e-10, 1.0, c_dEps));
    static_assert(!Dbl_IsBigger(1.0, 1.0, c_dEps));
    static_assert(Dbl_IsSmaller(1.0 - 2e-10, 1.0, c_dEps));
    static_assert(!Dbl_IsSmaller(1.0 - 0.5e-10, 1.0, c_dEps));
    static_assert(!Dbl_IsBigger(c_dEps, 0.0, c_dEps) && !Dbl_IsSmaller(-c_dEps, 0.0, c_dEps));
}

TEST(Dbl, BiggerEqualAcceptsValuesBelowWithinTheTolerance)
{
    static_assert(Dbl_IsBiggerEqual(0.0, 0.0, c_dEps));
    static_assert(Dbl_IsBiggerEqual(-c_dEps, 0.0, c_dEps));
    static_assert(!Dbl_IsBiggerEqual(-1.01e-10, 0.0, c_dEps));
}

TEST(Dbl, TheRangeIsWidenedByTheToleranceOnBothSides)
{
    static_assert(Dbl_IsInRangeInclusive(1e-5, -1e-5, 1e-5, c_dEps));
    static_assert(Dbl_IsInRangeInclusive(1e-5 + 0.5e-10, -1e-5, 1e-5, c_dEps));
    static_assert(!Dbl_IsInRangeInclusive(1e-5 + 2e-10, -1e-5, 1e-5, c_dEps));
    static_assert(!Dbl_IsInRangeInclusive(-1e-5 - 2e-10, -1e-5, 1e-5, c_dEps));
}

TEST(Dbl, EveryComparisonWithNanIsFalse)
{
    constexpr double dNan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_FALSE(Dbl_IsBigger(dNan, 0.0, c_dEps));
    EXPECT_FALSE(Dbl_IsSmaller(dNan, 0.0, c_dEps));
    EXPECT_FALSE(Dbl_IsBiggerEqual(dNan, 0.0, c_dEps));
    EXPECT_FALSE(Dbl_IsInRangeInclusive(dNan, 0.0, 1.0, c_dEps));
}

TEST(Dbl, HalvesRoundAwayFromZero)
{
    EXPECT_EQ(Dbl_Round(0.5, 0), 1.0);
    EXPECT_EQ(Dbl_Round(-0.5, 0), -1.0);
    EXPECT_EQ(Dbl_Round(2.5, 0), 3.0);
    EXPECT_EQ(Dbl_Round(-2.5, 0), -3.0);
    EXPECT_EQ(Dbl_Round(2.4999999999999996, 0), 2.0);
    EXPECT_EQ(Dbl_Round(0.49999999999999994, 0), 0.0);
    EXPECT_EQ(Dbl_Round(-0.49999999999999994, 0), 0.0);
    EXPECT_EQ(Dbl_Round(4503599627370495.5, 0), 4503599627370496.0);
    EXPECT_EQ(Dbl_Round(4503599627370497.0, 0), 4503599627370497.0);
}

TEST(Dbl, PositiveDigitsAreDecimalPlacesAndNegativeDigitsArePowersOfTen)
{
    EXPECT_EQ(Dbl_Round(12.345678, 2), 12.35);
    EXPECT_EQ(Dbl_Round(-12.345678, 3), -12.346);
    EXPECT_EQ(Dbl_Round(0.125, 2), 0.13);
    EXPECT_EQ(Dbl_Round(1250.0, -2), 1300.0);
    EXPECT_EQ(Dbl_Round(-1249.0, -2), -1200.0);
}

TEST(Dbl, NumbersWithoutSuchPlacesStayUnchanged)
{
    constexpr double dMax = std::numeric_limits<double>::max();
    EXPECT_EQ(Dbl_Round(1e300, 0), 1e300);
    EXPECT_EQ(Dbl_Round(std::numeric_limits<double>::infinity(), 0), std::numeric_limits<double>::infinity());
    EXPECT_TRUE(std::isnan(Dbl_Round(std::numeric_limits<double>::quiet_NaN(), 0)));
    EXPECT_EQ(Dbl_Round(dMax, 5), dMax);
    EXPECT_EQ(Dbl_Round(1.5, 1000), 1.5);
    EXPECT_EQ(Dbl_Round(1.5, std::numeric_limits<int>::max()), 1.5);
    EXPECT_EQ(Dbl_Round(0.0, 1000), 0.0);
    EXPECT_EQ(Dbl_Round(1.5, -1000), 0.0);
    EXPECT_EQ(Dbl_Round(1.5, std::numeric_limits<int>::min()), 0.0);
}

} // namespace
