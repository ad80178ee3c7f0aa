#include "classes/core/CBigFloat.h"

#include "classes/core/StringToNumber.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace
{

constexpr double c_dLargest = std::numeric_limits<double>::max();

CBigFloat Parse(std::wstring_view sText)
{
    CBigFloat number;
    EXPECT_TRUE(StringToNumber(sText, &number, false, nullptr)) << std::string(sText.begin(), sText.end());
    return number;
}

TEST(BigFloat, IsZeroAtFirst)
{
    const CBigFloat number;
    EXPECT_EQ(number.ToDouble(), 0.0);
    EXPECT_TRUE(number == 0);
    EXPECT_FALSE(number < 0);
}

TEST(BigFloat, HoldsEveryDoubleAndGivesItBack)
{
    for (const double dValue :
         {1.0, -1.0, 0.1, 1.0 / 3, 123456789.987654321, c_dLargest, -c_dLargest, std::numeric_limits<double>::min(),
          std::numeric_limits<double>::denorm_min(), 5e-324, std::nextafter(1.0, 2.0), 9007199254740993.0})
    {
        EXPECT_EQ(CBigFloat(dValue).ToDouble(), dValue) << dValue;
    }
}

TEST(BigFloat, TurnsInfinitiesIntoTheLargestDoublesAndNanIntoZero)
{
    EXPECT_EQ(CBigFloat(std::numeric_limits<double>::infinity()).ToDouble(), c_dLargest);
    EXPECT_EQ(CBigFloat(-std::numeric_limits<double>::infinity()).ToDouble(), -c_dLargest);
    EXPECT_EQ(CBigFloat(std::numeric_limits<double>::quiet_NaN()).ToDouble(), 0.0);
}

TEST(BigFloat, DistinguishesDecimalNumbersThatRoundToTheSameDouble)
{
    EXPECT_TRUE(Parse(L"0.1") < Parse(L"0.1000000000000000000000000000000000000000000000001"));
    EXPECT_TRUE(Parse(L"99999999999999999999") < Parse(L"100000000000000000000"));
    EXPECT_EQ(Parse(L"99999999999999999999").ToDouble(), 1e20);
    EXPECT_FALSE(Parse(L"0.1") == CBigFloat(0.1));
    EXPECT_TRUE(Parse(L"0.5") == CBigFloat(0.5));
}

TEST(BigFloat, ComparesWithWholeNumbers)
{
    EXPECT_TRUE(Parse(L"-0.0000001") < 0);
    EXPECT_FALSE(Parse(L"-0") < 0);
    EXPECT_TRUE(Parse(L"-0") == 0);
    EXPECT_FALSE(Parse(L"0.0000001") < 0);
    EXPECT_TRUE(Parse(L"0.0000001") > 0);
    EXPECT_TRUE(Parse(L"-1e-999999") < 0);
    EXPECT_TRUE(Parse(L"3") >= 3);
    EXPECT_TRUE(Parse(L"-2147483649") < std::numeric_limits<int>::min());
}

TEST(BigFloat, IsRoundedToTheNearestDouble)
{
    // Exactly between two doubles rounds to even, a little below rounds down, a little above rounds up.
    EXPECT_EQ(Parse(L"9007199254740993").ToDouble(), 9007199254740992.0);
    EXPECT_EQ(Parse(L"9007199254740992.9999999999999999999999999").ToDouble(), 9007199254740992.0);
    EXPECT_EQ(Parse(L"9007199254740993.0000000000000000000000001").ToDouble(), 9007199254740994.0);
}

TEST(BigFloat, SaturatesBeyondTheRangeOfDoubles)
{
    EXPECT_EQ(Parse(L"1e400").ToDouble(), c_dLargest);
    EXPECT_EQ(Parse(L"-1e400").ToDouble(), -c_dLargest);
    EXPECT_EQ(Parse(L"1e-400").ToDouble(), 0.0);
    EXPECT_EQ(Parse(L"-1e-400").ToDouble(), 0.0);
}

TEST(BigFloat, SaturatesBeyondItsOwnRange)
{
    EXPECT_TRUE(Parse(L"1e999999") < Parse(L"1e1000000"));
    EXPECT_TRUE(Parse(L"1e1000000") == Parse(L"9e999999999999"));
    EXPECT_TRUE(Parse(L"-9e999999999999") < Parse(L"-1e999999"));
    EXPECT_TRUE(Parse(L"1e-1000001") == 0);
    EXPECT_EQ(Parse(L"1e999999999999").ToDouble(), c_dLargest);
}

TEST(BigFloat, CopiesAreIndependentAndAMovedFromNumberIsZero)
{
    CBigFloat first = Parse(L"1.5");
    CBigFloat second = first;
    first = Parse(L"2.5");
    EXPECT_EQ(second.ToDouble(), 1.5);
    const CBigFloat third = std::move(second);
    EXPECT_EQ(third.ToDouble(), 1.5);
    second = third;
    EXPECT_TRUE(second == third);
    const CBigFloat& self = second;
    second = self;
    EXPECT_EQ(second.ToDouble(), 1.5);
    second = CBigFloat();
    EXPECT_TRUE(second == 0);
}

} // namespace
