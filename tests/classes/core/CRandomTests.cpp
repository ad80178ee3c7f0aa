#include "classes/core/CRandom.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace
{

constexpr std::uint64_t c_uSeed = 2026;
constexpr int c_iDraws = 100'000;

// The single-precision square root of two.
constexpr float c_fRoot2 = 1.41421354F;

TEST(Random, TheSameSeedGivesTheSameNumbers)
{
    CRandom first(c_uSeed);
    CRandom second(c_uSeed);
    for (int i = 0; i < 1000; ++i)
    {
        EXPECT_EQ(first.GetRandomNumber_Float(-1.0F, 1.0F), second.GetRandomNumber_Float(-1.0F, 1.0F));
        EXPECT_EQ(first.GetRandomNumber_Uint8(1, 32), second.GetRandomNumber_Uint8(1, 32));
    }
}

TEST(Random, DifferentSeedsGiveDifferentNumbers)
{
    CRandom first(c_uSeed);
    CRandom second(c_uSeed + 1);
    int iEqual = 0;
    for (int i = 0; i < 1000; ++i)
    {
        iEqual += first.GetRandomNumber_Float(0.0F, 1.0F) == second.GetRandomNumber_Float(0.0F, 1.0F) ? 1 : 0;
    }
    EXPECT_LT(iEqual, 5);
}

TEST(Random, GoldenFloats)
{
    // Computed independently of this program, from the definitions of the generator and of the mapping.
    constexpr std::array<std::uint32_t, 8> expected{0xBF04259DU, 0x3EDF887EU, 0xBD32732AU, 0x3F3BADF0U,
                                                    0xBF30F520U, 0x3F0AEA17U, 0xBF1776D2U, 0x3F99CF75U};
    CRandom random(c_uSeed);
    for (const std::uint32_t uBits : expected)
    {
        EXPECT_EQ(std::bit_cast<std::uint32_t>(random.GetRandomNumber_Float(-c_fRoot2, c_fRoot2)), uBits);
    }
}

TEST(Random, GoldenBytes)
{
    constexpr std::array<int, 16> expected{11, 21, 16, 25, 9, 23, 10, 30, 25, 2, 15, 12, 10, 11, 1, 23};
    CRandom random(c_uSeed);
    for (const int iByte : expected)
    {
        EXPECT_EQ(random.GetRandomNumber_Uint8(1, 32), iByte);
    }
}

TEST(Random, GoldenAfterAMillionNumbers)
{
    CRandom random(c_uSeed);
    for (int i = 0; i < 1'000'000; ++i)
    {
        random.GetRandomNumber_Uint8(0, 255);
    }
    EXPECT_EQ(std::bit_cast<std::uint32_t>(random.GetRandomNumber_Float(5.0F, 507.0F)), 0x43762DFEU);
}

TEST(Random, SetSeedStartsTheSequenceAgain)
{
    CRandom random(c_uSeed);
    const float fFirst = random.GetRandomNumber_Float(0.0F, 1.0F);
    random.GetRandomNumber_Uint8(0, 255);
    random.SetSeed(c_uSeed);
    EXPECT_EQ(random.GetSeed(), c_uSeed);
    EXPECT_EQ(random.GetRandomNumber_Float(0.0F, 1.0F), fFirst);
}

TEST(Random, SetSeedReplacesTheSeed)
{
    CRandom expected(c_uSeed);
    CRandom random(c_uSeed + 1);
    random.SetSeed(c_uSeed);
    EXPECT_EQ(random.GetSeed(), c_uSeed);
    EXPECT_EQ(random.GetRandomNumber_Float(0.0F, 1.0F), expected.GetRandomNumber_Float(0.0F, 1.0F));
}

TEST(Random, ASystemSeedDiffersEachTimeAndItsNumbersCanBeRepeated)
{
    CRandom first;
    CRandom second;
    EXPECT_NE(first.GetSeed(), second.GetSeed());
    CRandom again(first.GetSeed());
    EXPECT_EQ(first.GetRandomNumber_Float(0.0F, 1.0F), again.GetRandomNumber_Float(0.0F, 1.0F));
}

TEST(Random, ACopyContinuesWithTheSameNumbers)
{
    CRandom random(c_uSeed);
    random.GetRandomNumber_Float(0.0F, 1.0F);
    CRandom copy = random;
    EXPECT_EQ(copy.GetRandomNumber_Float(0.0F, 1.0F), random.GetRandomNumber_Float(0.0F, 1.0F));
    EXPECT_EQ(copy.GetSeed(), c_uSeed);
}

TEST(Random, FloatsLieBetweenTheBoundsInEitherOrder)
{
    constexpr float fMax = std::numeric_limits<float>::max();
    constexpr float fTiny = std::numeric_limits<float>::denorm_min();
    const std::vector<std::array<float, 2>> bounds{{-0.1F, 0.1F},   {507.0F, 5.0F}, {-fMax, fMax},
                                                   {fMax, -fMax},   {0.0F, fTiny},  {1.0F, std::nextafter(1.0F, 2.0F)},
                                                   {1e-30F, 1e30F}, {-fMax, 0.0F},  {8192.0F, 9994.0F}};
    CRandom random(c_uSeed);
    for (const auto& [fFirst, fSecond] : bounds)
    {
        for (int i = 0; i < 10'000; ++i)
        {
            const float f = random.GetRandomNumber_Float(fFirst, fSecond);
            ASSERT_GE(f, std::min(fFirst, fSecond));
            ASSERT_LE(f, std::max(fFirst, fSecond));
        }
    }
}

TEST(Random, EqualBoundsGiveTheBound)
{
    CRandom random(c_uSeed);
    for (const float f : {0.0F, -3.25F, 0.1F, std::numeric_limits<float>::max()})
    {
        EXPECT_EQ(random.GetRandomNumber_Float(f, f), f);
    }
    EXPECT_EQ(random.GetRandomNumber_Uint8(7, 7), 7);
}

TEST(Random, EveryCallDrawsOneNumberForAnyBounds)
{
    CRandom first(c_uSeed);
    CRandom second(c_uSeed);
    first.GetRandomNumber_Float(1.0F, 1.0F);
    first.GetRandomNumber_Uint8(9, 9);
    second.GetRandomNumber_Uint8(0, 255);
    second.GetRandomNumber_Float(5.0F, -5.0F);
    EXPECT_EQ(first.GetRandomNumber_Float(0.0F, 1.0F), second.GetRandomNumber_Float(0.0F, 1.0F));
}

TEST(Random, FloatsAreUniform)
{
    // A uniform distribution over an interval of length 2 sqrt 2 around 0 has mean 0 and variance 2/3. Five standard
    // errors are allowed; the seed is fixed, so the outcome is fixed too.
    CRandom random(c_uSeed);
    double dSum = 0.0;
    double dSumOfSquares = 0.0;
    for (int i = 0; i < c_iDraws; ++i)
    {
        const double d = static_cast<double>(random.GetRandomNumber_Float(-c_fRoot2, c_fRoot2));
        dSum += d;
        dSumOfSquares += d * d;
    }
    EXPECT_NEAR(dSum / c_iDraws, 0.0, 5.0 * std::sqrt(2.0 / 3 / c_iDraws));
    EXPECT_NEAR(dSumOfSquares / c_iDraws, 2.0 / 3, 0.01);
}

TEST(Random, BytesReachBothBoundsEquallyOften)
{
    constexpr int iLow = 3;
    constexpr int iHigh = 5;
    std::array<int, 256> counts{};
    CRandom random(c_uSeed);
    for (int i = 0; i < c_iDraws; ++i)
    {
        ++counts[random.GetRandomNumber_Uint8(iLow, iHigh)];
    }
    for (int i = 0; i < 256; ++i)
    {
        const bool bInside = i >= iLow && i <= iHigh;
        EXPECT_NEAR(counts[static_cast<std::size_t>(i)], bInside ? c_iDraws / 3 : 0, bInside ? 1000 : 0) << i;
    }
}

TEST(Random, BytesCoverTheWholeRangeAndAcceptBoundsInEitherOrder)
{
    std::array<int, 256> counts{};
    CRandom random(c_uSeed);
    for (int i = 0; i < c_iDraws; ++i)
    {
        ++counts[random.GetRandomNumber_Uint8(255, 0)];
    }
    EXPECT_EQ(std::count(counts.begin(), counts.end(), 0), 0);
    for (int i = 0; i < 1000; ++i)
    {
        const int iByte = random.GetRandomNumber_Uint8(32, 1);
        ASSERT_GE(iByte, 1);
        ASSERT_LE(iByte, 32);
    }
}

TEST(Random, AStateContinuesWithTheSameNumbers)
{
    // One engine has used all its words, one only some of them.
    for (const int iDrawn : {0, 312, 1000})
    {
        CRandom original(c_uSeed);
        for (int i = 0; i < iDrawn; ++i)
        {
            original.GetRandomNumber_Uint8(0, 255);
        }
        CRandom continued(c_uSeed + 1);
        EXPECT_TRUE(continued.SetState(original.GetSeed(), original.GetState()));
        EXPECT_EQ(continued.GetSeed(), c_uSeed);
        EXPECT_EQ(continued.GetState(), original.GetState());
        for (int i = 0; i < 1000; ++i)
        {
            ASSERT_EQ(continued.GetRandomNumber_Float(-1.0F, 1.0F), original.GetRandomNumber_Float(-1.0F, 1.0F));
        }
    }
}

TEST(Random, WordsThatAreNoStateAreRefused)
{
    CRandom random(c_uSeed);
    const CRandom::CState state = random.GetState();
    CRandom::CState beyondTheEnd = state;
    ++beyondTheEnd.back();
    CRandom::CState withoutABit{};
    withoutABit.back() = state.back();

    EXPECT_EQ(state.back(), 312U);
    EXPECT_FALSE(random.SetState(1, beyondTheEnd));
    EXPECT_FALSE(random.SetState(1, withoutABit));
    EXPECT_EQ(random.GetSeed(), c_uSeed);
    EXPECT_EQ(random.GetState(), state);
}

} // namespace
