#include "view/ColourRules.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <random>
#include <string>

namespace
{

constexpr std::int32_t c_iAtoms = 200;
constexpr double c_dUntouched = 42.0;
constexpr std::int32_t c_iMaxInt = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t c_iMinInt = std::numeric_limits<std::int32_t>::min();

CColourSettings MakeSettings(double d0, double d1, double d2)
{
    CColourSettings settings{};
    settings[0].dFactor = d0;
    settings[1].dFactor = d1;
    settings[2].dFactor = d2;
    return settings;
}

CFactorTexts Texts(const wchar_t* s0, const wchar_t* s1, const wchar_t* s2)
{
    return CFactorTexts{CWString(s0), CWString(s1), CWString(s2)};
}

struct CInterpreted
{
    bool bOk{};
    CColourSettings settings{};
};

CInterpreted Interpret(EnumAtomColourMode eMode, const CFactorTexts& texts,
                       std::optional<std::int32_t> countAtoms = c_iAtoms)
{
    CInterpreted result{false, MakeSettings(c_dUntouched, c_dUntouched, c_dUntouched)};
    result.bOk = InterpretFactors(eMode, texts, countAtoms, result.settings);
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
    EXPECT_EQ(d0, result.settings[0].dFactor);
    EXPECT_EQ(d1, result.settings[1].dFactor);
    EXPECT_EQ(d2, result.settings[2].dFactor);
}

} // namespace

TEST(ColourFactorsFixed, ACountAPercentageAndAnEmptyTextMakeTenOneHundredFortyAndFiftyOfTwoHundredAtoms)
{
    const CInterpreted result = Fixed(L"10", L"", L"25%");
    ExpectFactors(result, 10.0, 140.0, 50.0);
    EXPECT_EQ((CFixedRuns{10, 150, c_iAtoms}), GetFixedRuns(result.settings, c_iAtoms));
}

TEST(ColourFactorsFixed, AnyOfTheThreeFactorsMayBeTheOneLeftOut)
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

TEST(ColourFactorsFixed, CountsWithoutAnAtomSetLeaveNothingOver)
{
    ExpectFactors(Fixed(L"25", L"", L"10", std::nullopt), 25.0, 0.0, 10.0);
}

TEST(ColourFactorsFixed, APercentSignAloneIsNoNumber)
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

TEST(ColourFactorsFixed, ATextThatIsNoNumberFailsInEveryPlace)
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
    ExpectFactors(Fixed(L"50%", L"", L"10%", 5), 3.0, 1.0, 1.0); // 2.5 and 0.5 atoms
}

TEST(ColourFactorsFixed, ANegativeCountCountsAsLeftOut)
{
    ExpectFactors(Fixed(L"10", L"-5", L"20"), 10.0, 170.0, 20.0);
    EXPECT_FALSE(Fixed(L"10", L"-5", L"").bOk);
    EXPECT_TRUE(Fixed(L"10", L"-0.4", L"").bOk); // rounds to zero atoms, which is a count
}

TEST(ColourFactorsFixed, MoreAtomsThanThereAreLeaveNothingOver)
{
    ExpectFactors(Fixed(L"150", L"", L"100"), 150.0, 0.0, 100.0);
    ExpectFactors(Fixed(L"1000000000000%", L"", L"0"), 2.0e12, 0.0, 0.0);
}

TEST(ColourFactorsFixed, NumbersOutsideAnIntegersRangeSaturate)
{
    for (const wchar_t* const sHuge : {L"1e300", L"1e300%", L"1e308%", L"1e999", L"2147483648"})
    {
        const CInterpreted result = Fixed(sHuge, L"", L"10");
        ASSERT_TRUE(result.bOk);
        EXPECT_TRUE(std::isfinite(result.settings[0].dFactor));
        EXPECT_EQ(0.0, result.settings[1].dFactor);
        EXPECT_EQ((CFixedRuns{c_iAtoms, c_iAtoms, c_iAtoms}), GetFixedRuns(result.settings, c_iAtoms));
    }
    EXPECT_FALSE(Fixed(L"-1e300", L"", L"10").bOk);
}

TEST(ColourFactorsFixed, AFailedTextLeavesItsFactorAsItWasAndStoresTheOthers)
{
    const CInterpreted result = Fixed(L"10", L"abc", L"");
    EXPECT_FALSE(result.bOk);
    EXPECT_EQ(10.0, result.settings[0].dFactor);
    EXPECT_EQ(c_dUntouched, result.settings[1].dFactor);
    EXPECT_EQ(-1.0, result.settings[2].dFactor);
}

TEST(ColourFactorsSpeed, TheSecondTextIsIgnored)
{
    for (const wchar_t* const sSecond : {L"", L"7", L"abc", L"-3", L"50%"})
    {
        const CInterpreted result = Speed(L"0.75", sSecond, L"1.25");
        EXPECT_TRUE(result.bOk);
        EXPECT_EQ(0.75, result.settings[0].dFactor);
        EXPECT_EQ(1.25, result.settings[2].dFactor);
    }
}

TEST(ColourFactorsSpeed, TheMiddleFactorIsFilledWithACountThatNothingReads)
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

TEST(ColourFactorsSpeed, AHairBelowZeroStillCountsAsZero)
{
    EXPECT_TRUE(Speed(L"-1e-11", L"", L"1.25").bOk);
    EXPECT_FALSE(Speed(L"-1e-9", L"", L"1.25").bOk);
}

TEST(ColourFactorsSpeed, NothingIsRounded)
{
    EXPECT_EQ(0.123456789, Speed(L"0.123456789", L"", L"2").settings[0].dFactor);
}

TEST(ColourFactorsSpeed, AFailedTextLeavesItsFactorAsItWas)
{
    const CInterpreted result = Speed(L"abc", L"", L"1.25");
    EXPECT_EQ(c_dUntouched, result.settings[0].dFactor);
    EXPECT_EQ(-1.0, result.settings[1].dFactor);
    EXPECT_EQ(1.25, result.settings[2].dFactor);
}

TEST(ColourFactors, AnUnknownModeFailsAndTouchesNothing)
{
    constexpr auto c_eUnknown = static_cast<EnumAtomColourMode>(2);
    const CInterpreted result = Interpret(c_eUnknown, Texts(L"10", L"", L"20"));
    EXPECT_FALSE(result.bOk);
    EXPECT_EQ(c_dUntouched, result.settings[0].dFactor);
}

TEST(SpeedClass, AnAtomOnTheSlowLimitIsSlowAndOneOnTheFastLimitIsFast)
{
    const CColourSettings settings = MakeSettings(0.75, 0.0, 1.25);
    EXPECT_EQ(0, ClassOfAtom(1.5F, 2.0F, settings));
    EXPECT_EQ(2, ClassOfAtom(2.5F, 2.0F, settings));
    EXPECT_EQ(1, ClassOfAtom(std::nextafter(1.5F, 2.0F), 2.0F, settings));
    EXPECT_EQ(1, ClassOfAtom(std::nextafter(2.5F, 2.0F), 2.0F, settings));
}

TEST(SpeedClass, AnAtomAtRestIsSlow)
{
    EXPECT_EQ(0, ClassOfAtom(0.0F, 0.0F, MakeSettings(0.75, 0.0, 1.25)));
    EXPECT_EQ(0, ClassOfAtom(0.0F, 3.0F, MakeSettings(0.0, 0.0, 1.25)));
}

TEST(SpeedClass, WhereTheLimitsOverlapTheSlowClassWins)
{
    EXPECT_EQ(0, ClassOfAtom(1.0F, 1.0F, MakeSettings(2.0, 0.0, 0.5)));
    EXPECT_EQ(0, ClassOfAtom(2.0F, 1.0F, MakeSettings(2.0, 0.0, 2.0)));
}

TEST(SpeedClass, TheMiddleFactorPlaysNoPart)
{
    EXPECT_EQ(1, ClassOfAtom(1.0F, 1.0F, MakeSettings(0.75, 1e300, 1.25)));
    EXPECT_EQ(1, ClassOfAtom(1.0F, 1.0F, MakeSettings(0.75, -1.0, 1.25)));
}

// 0.1F * 0.7 is a different number in single and in double precision; the float speed nearest to the product lies above
// the exact one, so that only the comparison in double precision keeps it out of the slow class.
TEST(SpeedClass, TheComparisonIsMadeInDoublePrecision)
{
    constexpr float c_fAverage = 0.1F;
    const CColourSettings settings = MakeSettings(0.7, 0.0, 2.0);
    const double dLimit = static_cast<double>(c_fAverage) * settings[0].dFactor;
    const float fNearest = static_cast<float>(dLimit);
    const float fBelow = static_cast<double>(fNearest) > dLimit ? std::nextafter(fNearest, 0.0F) : fNearest;
    const float fAbove = std::nextafter(fBelow, 1.0F);
    ASSERT_LE(static_cast<double>(fBelow), dLimit);
    ASSERT_GT(static_cast<double>(fAbove), dLimit);
    EXPECT_EQ(0, ClassOfAtom(fBelow, c_fAverage, settings));
    EXPECT_EQ(1, ClassOfAtom(fAbove, c_fAverage, settings));
}

TEST(SpeedClass, ASpeedThatIsNotANumberIsInTheMiddle)
{
    EXPECT_EQ(1, ClassOfAtom(std::nanf(""), 1.0F, MakeSettings(0.75, 0.0, 1.25)));
    EXPECT_EQ(1, ClassOfAtom(1.0F, std::nanf(""), MakeSettings(0.75, 0.0, 1.25)));
}

TEST(Truncation, GoesTowardsZeroAndStopsAtTheEndsOfTheRange)
{
    EXPECT_EQ(2, TruncateToInt32(2.9));
    EXPECT_EQ(-2, TruncateToInt32(-2.9));
    EXPECT_EQ(c_iMaxInt, TruncateToInt32(1e300));
    EXPECT_EQ(c_iMinInt, TruncateToInt32(-1e300));
    EXPECT_EQ(c_iMaxInt, TruncateToInt32(2147483647.5));
    EXPECT_EQ(c_iMinInt, TruncateToInt32(-2147483648.5));
    EXPECT_EQ(c_iMaxInt, TruncateToInt32(std::numeric_limits<double>::infinity()));
    EXPECT_EQ(0, TruncateToInt32(std::nan("")));
}

TEST(FixedRuns, AreTakenFromTheFirstTwoFactorsTruncated)
{
    EXPECT_EQ((CFixedRuns{10, 150, 200}), GetFixedRuns(MakeSettings(10.9, 140.9, 50.0), 200));
    EXPECT_EQ((CFixedRuns{0, 0, 200}), GetFixedRuns(MakeSettings(0.0, 0.0, 200.0), 200));
}

TEST(FixedRuns, StopAtTheCount)
{
    EXPECT_EQ((CFixedRuns{5, 5, 5}), GetFixedRuns(MakeSettings(10.0, 20.0, 0.0), 5));
    EXPECT_EQ((CFixedRuns{3, 5, 5}), GetFixedRuns(MakeSettings(3.0, 20.0, 0.0), 5));
    EXPECT_EQ((CFixedRuns{0, 0, 0}), GetFixedRuns(MakeSettings(10.0, 20.0, 0.0), 0));
    EXPECT_EQ((CFixedRuns{0, 0, 0}), GetFixedRuns(MakeSettings(10.0, 20.0, 0.0), -1));
}

// After a refused start the factors of the other mode may still be there when the next frame is drawn.
TEST(FixedRuns, AlwaysLieInOrderInsideTheArrayWhateverTheFactorsHold)
{
    std::mt19937_64 random(7);
    const std::array<double, 11> values{
        -1.0,        0.0,          0.75,          3.0,  -1e300,
        1e300,       2147483647.0, -2147483648.0, 1e10, std::numeric_limits<double>::infinity(),
        std::nan("")};
    std::uniform_int_distribution<std::size_t> pick(0, values.size() - 1);
    for (int i = 0; i < 2000; ++i)
    {
        const auto count = static_cast<std::int32_t>(random() % 10U);
        const CFixedRuns runs =
            GetFixedRuns(MakeSettings(values[pick(random)], values[pick(random)], values[pick(random)]), count);
        ASSERT_LE(0, runs.a);
        ASSERT_LE(runs.a, runs.b);
        ASSERT_LE(runs.b, runs.count);
        ASSERT_EQ(count, runs.count);
    }
}
