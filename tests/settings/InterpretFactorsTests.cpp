#include "settings/FactorRules.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>

// Tests the meaning of the three factor texts in each mode, and the refused texts.

namespace
{

constexpr std::int32_t c_iAtoms = 200;
constexpr double c_dUntouched = 42.0;

CFactors Texts(const wchar_t* s0, const wchar_t* s1, const wchar_t* s2)
{
    return CFactors{CFactor(s0), CFactor(s1), CFactor(s2)};
}

struct CInterpreted
{
    bool bOk{};
    CFactorValues values{};
};

CInterpreted Interpret(EnumAtomColourMode eMode, const CFactors& factors,
                       std::optional<std::int32_t> countAtoms = c_iAtoms)
{
    CInterpreted result{false, {c_dUntouched, c_dUntouched, c_dUntouched}};
    result.bOk = InterpretFactors(eMode, factors, countAtoms, result.values);
    return result;
}

CInterpreted Fixed(const wchar_t* s0, const wchar_t* s1, const wchar_t* s2,
                   std::optional<std::int32_t> countAtoms = c_iAtoms)
{
    return Interpret(EnumAtomColourMode::Fixed, Texts(s0, s1, s2), countAtoms);
}

CInterpreted Speed(const wchar_t* s0, const wchar_t* s1, const wchar_t* s2)
{
    return Interpret(EnumAtomColourMode::Speed, Texts(s0, s1, s2));
}

void ExpectFactors(const CInterpreted& result, double d0, double d1, double d2)
{
    EXPECT_TRUE(result.bOk);
    EXPECT_EQ(result.values[0], d0);
    EXPECT_EQ(result.values[1], d1);
    EXPECT_EQ(result.values[2], d2);
}

} // namespace

TEST(ColourFactorsFixed, ACountAPercentageAndAnEmptyTextMakeTenOneHundredFortyAndFiftyOfTwoHundredAtoms)
{
    ExpectFactors(Fixed(L"10", L"", L"25%"), 10.0, 140.0, 50.0);
}

TEST(ColourFactorsFixed, AnyOfTheThreeFactorsMayBeEmpty)
{
    ExpectFactors(Fixed(L"", L"30", L"20"), 150.0, 30.0, 20.0);
    ExpectFactors(Fixed(L"30", L"", L"20"), 30.0, 150.0, 20.0);
    ExpectFactors(Fixed(L"30", L"20", L""), 30.0, 20.0, 150.0);
}

TEST(ColourFactorsFixed, AllThreeGivenFail)
{
    EXPECT_FALSE(Fixed(L"10", L"20", L"30").bOk);
}

TEST(ColourFactorsFixed, TwoOrThreeEmptyFail)
{
    EXPECT_FALSE(Fixed(L"10", L"", L"").bOk);
    EXPECT_FALSE(Fixed(L"", L"10", L"").bOk);
    EXPECT_FALSE(Fixed(L"", L"", L"10").bOk);
    EXPECT_FALSE(Fixed(L"", L"", L"").bOk);
}

TEST(ColourFactorsFixed, APercentageWithNoAtomSetFails)
{
    EXPECT_FALSE(Fixed(L"%", L"", L"10", std::nullopt).bOk);
    EXPECT_FALSE(Fixed(L"25%", L"", L"10", std::nullopt).bOk);
    EXPECT_TRUE(Fixed(L"25%", L"", L"10", 0).bOk);
}

TEST(ColourFactorsFixed, WithoutAnAtomSetTheClassesAddUpToZero)
{
    ExpectFactors(Fixed(L"25", L"", L"10", std::nullopt), 25.0, -35.0, 10.0);
}

TEST(ColourFactorsFixed, APercentSignAloneIsRefused)
{
    EXPECT_FALSE(Fixed(L"%", L"", L"10").bOk);
}

TEST(ColourFactorsFixed, OnlyAPercentSignAtTheEndMakesAPercentage)
{
    EXPECT_FALSE(Fixed(L"5%%", L"", L"10").bOk);
    EXPECT_FALSE(Fixed(L"%5", L"", L"10").bOk);
    EXPECT_FALSE(Fixed(L"5%5", L"", L"10").bOk);
    ExpectFactors(Fixed(L"5%", L"", L"10"), 10.0, 180.0, 10.0);
}

TEST(ColourFactorsFixed, AnInvalidNumberFailsInEveryFactor)
{
    for (const wchar_t* const sText : {L"abc", L"12abc", L"1,5", L"0x10", L"nan", L"inf", L" ", L"+", L"1e"})
    {
        EXPECT_FALSE(Fixed(sText, L"", L"10").bOk) << CWString(sText).GetLength();
        EXPECT_FALSE(Fixed(L"10", sText, L"").bOk) << CWString(sText).GetLength();
        EXPECT_FALSE(Fixed(L"", L"10", sText).bOk) << CWString(sText).GetLength();
    }
}

TEST(ColourFactorsFixed, CountsAndPercentagesAreRoundedHalfAwayFromZero)
{
    ExpectFactors(Fixed(L"10.5", L"", L"10.4"), 11.0, 179.0, 10.0);
    ExpectFactors(Fixed(L"50%", L"", L"10%", 5), 3.0, 1.0, 1.0); // rounded from 2.5 and 0.5 atoms
}

TEST(ColourFactorsFixed, ANegativeCountIsTreatedAsEmpty)
{
    ExpectFactors(Fixed(L"10", L"-5", L"20"), 10.0, 170.0, 20.0);
    EXPECT_FALSE(Fixed(L"10", L"-5", L"").bOk);
    EXPECT_TRUE(Fixed(L"10", L"-0.4", L"").bOk); // rounds to zero atoms, which is a count
}

TEST(ColourFactorsFixed, TheClassesAddUpToTheAtomsAlsoWhenMoreAreAskedForThanThereAre)
{
    ExpectFactors(Fixed(L"100%", L"", L"50%", 256), 256.0, -128.0, 128.0);
    ExpectFactors(Fixed(L"", L"100%", L"50%", 256), -128.0, 256.0, 128.0);
    ExpectFactors(Fixed(L"100%", L"50%", L"", 256), 256.0, 128.0, -128.0);
    ExpectFactors(Fixed(L"150", L"", L"100"), 150.0, -50.0, 100.0);
}

// A count beyond the integers is truncated to the largest of them.
TEST(ColourFactorsFixed, TheRemainderOfAHugeCountFollowsFromTheLargestInteger)
{
    ExpectFactors(Fixed(L"1000000000000%", L"", L"0"), 2.0e12, c_iAtoms - 2147483647.0, 0.0);
}

TEST(ColourFactorsFixed, NumbersOutsideTheIntegerRangeSaturate)
{
    for (const wchar_t* const sHuge : {L"1e300", L"1e300%", L"1e308%", L"1e999", L"2147483648"})
    {
        const CInterpreted result = Fixed(sHuge, L"", L"10");
        ASSERT_TRUE(result.bOk);
        EXPECT_TRUE(std::isfinite(result.values[0]));
        EXPECT_EQ(result.values[1], c_iAtoms - 2147483647.0 - 10.0);
    }
    EXPECT_FALSE(Fixed(L"-1e300", L"", L"10").bOk);
}

TEST(ColourFactorsFixed, AFailedTextLeavesItsFactorUnchangedAndStoresTheOthers)
{
    const CInterpreted result = Fixed(L"10", L"abc", L"");
    EXPECT_FALSE(result.bOk);
    EXPECT_EQ(result.values[0], 10.0);
    EXPECT_EQ(result.values[1], c_dUntouched);
    EXPECT_EQ(result.values[2], -1.0);
}

TEST(ColourFactorsSpeed, TheSecondTextIsIgnored)
{
    for (const wchar_t* const sSecond : {L"", L"7", L"abc", L"-3", L"50%"})
    {
        const CInterpreted result = Speed(L"0.75", sSecond, L"1.25");
        EXPECT_TRUE(result.bOk);
        EXPECT_EQ(result.values[0], 0.75);
        EXPECT_EQ(result.values[2], 1.25);
    }
}

TEST(ColourFactorsSpeed, TheMiddleFactorGetsAnUnusedCount)
{
    ExpectFactors(Speed(L"1.9", L"", L"2.9"), 1.9, c_iAtoms - 1.0 - 2.0, 2.9);
}

TEST(ColourFactorsSpeed, BothOuterTextsMustBeNumbersOfAtLeastZero)
{
    EXPECT_TRUE(Speed(L"0", L"", L"0").bOk);
    EXPECT_FALSE(Speed(L"-0.1", L"", L"1.25").bOk);
    EXPECT_FALSE(Speed(L"0.75", L"", L"-0.1").bOk);
    EXPECT_FALSE(Speed(L"", L"", L"1.25").bOk);
    EXPECT_FALSE(Speed(L"0.75", L"", L"").bOk);
    EXPECT_FALSE(Speed(L"abc", L"", L"1.25").bOk);
    EXPECT_FALSE(Speed(L"0.75", L"", L"abc").bOk);
}

TEST(ColourFactorsSpeed, ATinyNegativeNumberCountsAsZero)
{
    EXPECT_TRUE(Speed(L"-1e-11", L"", L"1.25").bOk);
    EXPECT_FALSE(Speed(L"-1e-9", L"", L"1.25").bOk);
}

TEST(ColourFactorsSpeed, NothingIsRounded)
{
    EXPECT_EQ(Speed(L"0.123456789", L"", L"2").values[0], 0.123456789);
}

TEST(ColourFactorsSpeed, AFailedTextLeavesItsFactorUnchanged)
{
    const CInterpreted result = Speed(L"abc", L"", L"1.25");
    EXPECT_EQ(result.values[0], c_dUntouched);
    EXPECT_EQ(result.values[1], -1.0);
    EXPECT_EQ(result.values[2], 1.25);
}

TEST(ColourFactors, AnUnknownModeFailsAndChangesNothing)
{
    constexpr auto c_eUnknown = static_cast<EnumAtomColourMode>(2);
    const CInterpreted result = Interpret(c_eUnknown, Texts(L"10", L"", L"20"));
    EXPECT_FALSE(result.bOk);
    EXPECT_EQ(result.values[0], c_dUntouched);
}

TEST(Truncation, RoundsTowardsZeroAndSaturates)
{
    EXPECT_EQ(TruncateToInt32(2.9), 2);
    EXPECT_EQ(TruncateToInt32(-2.9), -2);
    EXPECT_EQ(TruncateToInt32(1e300), std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(TruncateToInt32(-1e300), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(TruncateToInt32(2147483647.5), std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(TruncateToInt32(-2147483648.5), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(TruncateToInt32(std::numeric_limits<double>::infinity()), std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(TruncateToInt32(std::nan("")), 0);
}
