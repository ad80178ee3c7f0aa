#include "tests/view/ColourTesting.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <random>

// Tests the colour class of an atom: by its speed, or by its index in the array.

TEST(SpeedClass, AnAtomOnTheSlowLimitIsSlowAndOneOnTheFastLimitIsFast)
{
    const CColourSettings settings = MakeSettings(0.75, 0.0, 1.25);
    EXPECT_EQ(ClassOfAtom(1.5F, 2.0F, settings), 0);
    EXPECT_EQ(ClassOfAtom(2.5F, 2.0F, settings), 2);
    EXPECT_EQ(ClassOfAtom(std::nextafter(1.5F, 2.0F), 2.0F, settings), 1);
    EXPECT_EQ(ClassOfAtom(std::nextafter(2.5F, 2.0F), 2.0F, settings), 1);
}

TEST(SpeedClass, AnAtomAtRestIsSlow)
{
    EXPECT_EQ(ClassOfAtom(0.0F, 0.0F, MakeSettings(0.75, 0.0, 1.25)), 0);
    EXPECT_EQ(ClassOfAtom(0.0F, 3.0F, MakeSettings(0.0, 0.0, 1.25)), 0);
}

TEST(SpeedClass, IfTheLimitsOverlapTheSlowClassWins)
{
    EXPECT_EQ(ClassOfAtom(1.0F, 1.0F, MakeSettings(2.0, 0.0, 0.5)), 0);
    EXPECT_EQ(ClassOfAtom(2.0F, 1.0F, MakeSettings(2.0, 0.0, 2.0)), 0);
}

TEST(SpeedClass, TheMiddleFactorHasNoEffect)
{
    EXPECT_EQ(ClassOfAtom(1.0F, 1.0F, MakeSettings(0.75, 1e300, 1.25)), 1);
    EXPECT_EQ(ClassOfAtom(1.0F, 1.0F, MakeSettings(0.75, -1.0, 1.25)), 1);
}

// 0.1F * 0.7 is a different number in single and in double precision; the float nearest to the product lies above the
// exact product. Only a comparison in double precision keeps this speed out of the slow class.
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
    EXPECT_EQ(ClassOfAtom(fBelow, c_fAverage, settings), 0);
    EXPECT_EQ(ClassOfAtom(fAbove, c_fAverage, settings), 1);
}

TEST(SpeedClass, ANanSpeedIsInTheMiddleClass)
{
    EXPECT_EQ(ClassOfAtom(std::nanf(""), 1.0F, MakeSettings(0.75, 0.0, 1.25)), 1);
    EXPECT_EQ(ClassOfAtom(1.0F, std::nanf(""), MakeSettings(0.75, 0.0, 1.25)), 1);
}

TEST(FixedRuns, FollowFromTheTextsOfTheFactors)
{
    static constexpr std::int32_t c_iAtoms = 200;
    const auto getRuns = [](const wchar_t* sFirst, const wchar_t* sThird) {
        CColourSettings settings{};
        const CFactors factors{CFactor(sFirst), CFactor(), CFactor(sThird)};
        EXPECT_TRUE(InterpretFactors(EnumAtomColourMode::Fixed, factors, c_iAtoms, settings));
        return GetFixedRuns(settings, c_iAtoms);
    };
    EXPECT_EQ(getRuns(L"10", L"25%"), (CFixedRuns{10, 150, c_iAtoms}));
    EXPECT_EQ(getRuns(L"1e300%", L"10"), (CFixedRuns{0, 0, c_iAtoms}));
}

// The stored classes are 256, -128 and 128 atoms, or -128, 256 and 128.
TEST(FixedRuns, WhereMoreAtomsAreAskedForThanThereAreTheClassesBehindTheNegativeOneKeepTheirAtoms)
{
    static constexpr std::int32_t c_iAtoms = 256;
    const auto getRuns = [](const wchar_t* sFirst, const wchar_t* sSecond, const wchar_t* sThird) {
        CColourSettings settings{};
        const CFactors factors{CFactor(sFirst), CFactor(sSecond), CFactor(sThird)};
        EXPECT_TRUE(InterpretFactors(EnumAtomColourMode::Fixed, factors, c_iAtoms, settings));
        return GetFixedRuns(settings, c_iAtoms);
    };
    EXPECT_EQ(getRuns(L"100%", L"", L"50%"), (CFixedRuns{128, 128, c_iAtoms}));
    EXPECT_EQ(getRuns(L"", L"100%", L"50%"), (CFixedRuns{0, 128, c_iAtoms}));
    EXPECT_EQ(getRuns(L"100%", L"50%", L""), (CFixedRuns{c_iAtoms, c_iAtoms, c_iAtoms}));
    EXPECT_EQ(getRuns(L"50%", L"100%", L""), (CFixedRuns{128, c_iAtoms, c_iAtoms}));
}

TEST(FixedRuns, AreCountedFromALimitedFirstClassAndAnUnlimitedSecondOne)
{
    EXPECT_EQ(GetFixedRuns(MakeSettings(300.0, -172.0, 128.0), 256), (CFixedRuns{84, 84, 256}));
    EXPECT_EQ(GetFixedRuns(MakeSettings(-172.0, 300.0, 128.0), 256), (CFixedRuns{0, 128, 256}));
    EXPECT_EQ(GetFixedRuns(MakeSettings(10.0, -20.0, 15.0), 5), (CFixedRuns{0, 0, 5}));
}

TEST(ColourSettings, KeepTheirColoursAndTheFactorsThatAreNotUnderstood)
{
    CColourSettings settings = MakeSettings(1.0, 2.0, 3.0);
    settings[1].cr = 0x123456;
    const CFactors factors{CFactor(L"0.5"), CFactor(), CFactor(L"abc")};
    EXPECT_FALSE(InterpretFactors(EnumAtomColourMode::Speed, factors, 200, settings));
    EXPECT_EQ(settings[0].dFactor, 0.5);
    EXPECT_EQ(settings[2].dFactor, 3.0);
    EXPECT_EQ(settings[1].cr, 0x123456u);
}

TEST(FixedRuns, AreTheFirstTwoFactorsTruncated)
{
    EXPECT_EQ(GetFixedRuns(MakeSettings(10.9, 140.9, 50.0), 200), (CFixedRuns{10, 150, 200}));
    EXPECT_EQ(GetFixedRuns(MakeSettings(0.0, 0.0, 200.0), 200), (CFixedRuns{0, 0, 200}));
}

TEST(FixedRuns, NeverExceedTheAtomCount)
{
    EXPECT_EQ(GetFixedRuns(MakeSettings(10.0, 20.0, 0.0), 5), (CFixedRuns{5, 5, 5}));
    EXPECT_EQ(GetFixedRuns(MakeSettings(3.0, 20.0, 0.0), 5), (CFixedRuns{3, 5, 5}));
    EXPECT_EQ(GetFixedRuns(MakeSettings(10.0, 20.0, 0.0), 0), (CFixedRuns{0, 0, 0}));
    EXPECT_EQ(GetFixedRuns(MakeSettings(10.0, 20.0, 0.0), -1), (CFixedRuns{0, 0, 0}));
}

// After a refused start the next frame may still see the factors of the other mode.
TEST(FixedRuns, AreOrderedAndInsideTheArrayForAllFactors)
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
        ASSERT_EQ(runs.count, count);
    }
}
