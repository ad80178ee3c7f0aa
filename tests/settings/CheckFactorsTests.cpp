#include "settings/FactorRules.h"

#include <gtest/gtest.h>

#include <ostream>
#include <vector>

// Tests which factors are refused before a start, and why.

// For the messages of the tests.
static std::ostream& operator<<(std::ostream& stream, const CFactorError& error)
{
    return stream << "error " << static_cast<int>(error.eError) << " of factor " << error.uFactor + 1;
}

namespace
{

using Errors = std::vector<CFactorError>;

Errors Check(const wchar_t* first, const wchar_t* second, const wchar_t* third, EnumAtomColourMode eMode)
{
    return CheckFactors({CFactor(first), CFactor(second), CFactor(third)}, eMode);
}

Errors CheckFixed(const wchar_t* first, const wchar_t* second, const wchar_t* third)
{
    return Check(first, second, third, EnumAtomColourMode::Fixed);
}

Errors CheckSpeed(const wchar_t* first, const wchar_t* second, const wchar_t* third)
{
    return Check(first, second, third, EnumAtomColourMode::Speed);
}

const CFactorError c_NeedTwo = {EnumFactorError::NotExactlyTwoSet, 0};

CFactorError Invalid(std::size_t uNumber)
{
    return {EnumFactorError::Invalid, uNumber - 1};
}

CFactorError InvalidForSpeed(std::size_t uNumber)
{
    return {EnumFactorError::PercentageInSpeedMode, uNumber - 1};
}

TEST(CheckFactors, FixedModeAcceptsACountAndAPercentage)
{
    EXPECT_EQ(CheckFixed(L"10", L"", L"50%"), Errors{});
    EXPECT_EQ(CheckFixed(L"", L"12.34%", L"123"), Errors{});
}

TEST(CheckFactors, ThreeFactorsOneOrNoneGiveTheErrorThatAsksForTwo)
{
    EXPECT_EQ(CheckFixed(L"10", L"20", L"30"), Errors{c_NeedTwo});
    EXPECT_EQ(CheckFixed(L"10", L"", L""), Errors{c_NeedTwo});
    EXPECT_EQ(CheckFixed(L"", L"", L""), Errors{c_NeedTwo});
    EXPECT_EQ(CheckSpeed(L"1", L"2", L"3"), Errors{c_NeedTwo});
    EXPECT_EQ(CheckSpeed(L"", L"", L""), Errors{c_NeedTwo});
}

TEST(CheckFactors, ZeroIsASetFactor)
{
    EXPECT_EQ(CheckFixed(L"0", L"", L"0%"), Errors{});
    EXPECT_EQ(CheckFixed(L"0", L"0", L"0"), Errors{c_NeedTwo});
}

TEST(CheckFactors, AFactorThatIsBelowZeroOrNotANumberIsInvalid)
{
    EXPECT_EQ(CheckFixed(L"-1", L"", L"5"), Errors{Invalid(1)});
    EXPECT_EQ(CheckFixed(L"1", L"abc", L""), Errors{Invalid(2)});
    EXPECT_EQ(CheckFixed(L"1", L"", L"1,5"), Errors{Invalid(3)});
    EXPECT_EQ(CheckFixed(L"1", L"", L" "), Errors{Invalid(3)});
    EXPECT_EQ(CheckFixed(L"1", L"", L"%"), Errors{Invalid(3)});
    EXPECT_EQ(CheckFixed(L"1", L"", L"-0.0001%"), Errors{Invalid(3)});
}

TEST(CheckFactors, EveryBadFactorHasItsErrorInOrderAndNoneIsAboutTheCount)
{
    EXPECT_EQ(CheckFixed(L"x", L"-2", L"5%%"), (Errors{Invalid(1), Invalid(2), Invalid(3)}));
    EXPECT_EQ(CheckFixed(L"", L"", L"x"), Errors{Invalid(3)});
}

TEST(CheckFactors, SpeedModeAcceptsTheUsualPair)
{
    EXPECT_EQ(CheckSpeed(L"0.75", L"", L"1.25"), Errors{});
}

TEST(CheckFactors, SpeedModeRefusesAPercentage)
{
    EXPECT_EQ(CheckSpeed(L"50%", L"", L"1.25"), Errors{InvalidForSpeed(1)});
}

TEST(CheckFactors, EveryPercentageIsAnErrorInSpeedMode)
{
    EXPECT_EQ(CheckSpeed(L"x", L"", L"50%"), (Errors{Invalid(1), InvalidForSpeed(3)}));
    EXPECT_EQ(CheckSpeed(L"1%", L"2%", L"3%"), (Errors{InvalidForSpeed(1), InvalidForSpeed(2), InvalidForSpeed(3)}));
}

TEST(CheckFactors, APercentSignThatIsNotTheLastCharacterIsAnErrorInEachMode)
{
    EXPECT_EQ(CheckSpeed(L"50% ", L"", L"1.25"), Errors{Invalid(1)});
    EXPECT_EQ(CheckFixed(L"50% ", L"", L"10"), Errors{Invalid(1)});
    EXPECT_EQ(CheckSpeed(L"5%0", L"", L"1.25"), Errors{Invalid(1)});
    EXPECT_EQ(CheckSpeed(L"50%%", L"", L"1.25"), Errors{Invalid(1)});
}

TEST(CheckFactors, ExtremeNumbersAreCheckedAtOnce)
{
    EXPECT_EQ(CheckFixed(L"1e300", L"", L"1000000000000%"), Errors{});
    EXPECT_EQ(CheckFixed(L"1e999999999", L"", L"1"), Errors{});
    EXPECT_EQ(CheckFixed(L"-1e999999999", L"", L"1"), Errors{Invalid(1)});
}

} // namespace
