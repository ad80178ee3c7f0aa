#include "headless/observed/OverlapStatistics.h"
#include "tests/headless/HeadlessTesting.h"

#include "classes/core/CRandom.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{

constexpr CSize<int> c_World = {100, 100};

// Tests every atom with every other.
COverlapStatistics CountPlainly(const CAtoms& atoms)
{
    COverlapStatistics statistics;
    for (std::int32_t i = 0; i < atoms.GetCount(); ++i)
    {
        for (std::int32_t j = i + 1; j < atoms.GetCount(); ++j)
        {
            const double dx = static_cast<double>(atoms[i].x) - static_cast<double>(atoms[j].x);
            const double dy = static_cast<double>(atoms[i].y) - static_cast<double>(atoms[j].y);
            const double overlap = atoms[i].radius + atoms[j].radius - std::sqrt(dx * dx + dy * dy);
            statistics.largest = std::max(statistics.largest, overlap);
            statistics.pairs += overlap > 0.01 ? 1U : 0U;
        }
    }
    return statistics;
}

bool GoOn(std::uint64_t)
{
    return true;
}

} // namespace

TEST(OverlapStatistics, AKnownConfigurationIsCounted)
{
    const COverlapStatistics statistics = ComputeOverlapStatistics(
        MakeAtoms({MakeAtom(20, 20, 5), MakeAtom(28, 20, 5), MakeAtom(20, 29.5F, 5), MakeAtom(80, 80, 5)}), c_World,
        GoOn);

    EXPECT_EQ(statistics.pairs, 2U);
    EXPECT_DOUBLE_EQ(statistics.largest, 2.0);
    EXPECT_TRUE(statistics.bComplete);
}

TEST(OverlapStatistics, TouchingIsNoOverlap)
{
    const COverlapStatistics statistics =
        ComputeOverlapStatistics(MakeAtoms({MakeAtom(20, 20, 5), MakeAtom(30, 20, 5)}), c_World, GoOn);

    EXPECT_EQ(statistics.pairs, 0U);
    EXPECT_EQ(statistics.largest, 0.0);
}

TEST(OverlapStatistics, ASmallOverlapIsMeasuredButNotCounted)
{
    const COverlapStatistics statistics =
        ComputeOverlapStatistics(MakeAtoms({MakeAtom(20, 20, 5), MakeAtom(29.9921875F, 20, 5)}), c_World, GoOn);

    EXPECT_EQ(statistics.pairs, 0U);
    EXPECT_DOUBLE_EQ(statistics.largest, 0.0078125);
}

TEST(OverlapStatistics, AtomsAtOnePlaceOverlapByTheSumOfTheirRadii)
{
    const COverlapStatistics statistics = ComputeOverlapStatistics(
        MakeAtoms({MakeAtom(20, 20, 5), MakeAtom(20, 20, 3), MakeAtom(20, 20, 2)}), c_World, GoOn);

    EXPECT_EQ(statistics.pairs, 3U);
    EXPECT_DOUBLE_EQ(statistics.largest, 8.0);
}

TEST(OverlapStatistics, TheGridFindsTheSamePairsAsATestOfAllPairs)
{
    for (std::uint64_t uSeed = 1; uSeed <= 20; ++uSeed)
    {
        CRandom random(uSeed);
        CAtoms atoms;
        atoms.Allocate(500);
        for (std::int32_t index = 0; index < atoms.GetCount(); ++index)
        {
            // Some lie beyond the walls: their pairs count as well.
            const float x = random.GetRandomNumber_Float(-40, 340);
            const float y = random.GetRandomNumber_Float(-40, 190);
            atoms[index] = MakeAtom(x, y, random.GetRandomNumber_Uint8(1, uSeed % 2 == 0 ? 4 : 32));
        }
        const COverlapStatistics expected = CountPlainly(atoms);
        const COverlapStatistics statistics = ComputeOverlapStatistics(atoms, {300, 150}, GoOn);
        EXPECT_EQ(statistics.pairs, expected.pairs) << uSeed;
        EXPECT_DOUBLE_EQ(statistics.largest, expected.largest) << uSeed;
        EXPECT_GT(statistics.pairs, 0U);
    }
}

TEST(OverlapStatistics, CountingStopsEarlyWhenItMayNotGoOn)
{
    constexpr std::int32_t c_iCount = 3000;
    CAtoms atoms;
    atoms.Allocate(c_iCount);
    for (std::int32_t index = 0; index < atoms.GetCount(); ++index)
    {
        atoms[index] = MakeAtom(50, 50, 5);
    }
    std::vector<std::uint64_t> done;
    const auto twice = [&done](std::uint64_t uAtomsDone) {
        done.push_back(uAtomsDone);
        return done.size() < 2;
    };

    const COverlapStatistics all = ComputeOverlapStatistics(atoms, c_World, GoOn);
    EXPECT_EQ(all.pairs, 4498500U);
    EXPECT_TRUE(all.bComplete);
    const COverlapStatistics some = ComputeOverlapStatistics(atoms, c_World, twice);
    EXPECT_FALSE(some.bComplete);
    EXPECT_GE(some.pairs, 2 * c_uPairsBetweenQuestions);
    EXPECT_LE(some.pairs, 2 * (c_uPairsBetweenQuestions + c_iCount));
    EXPECT_DOUBLE_EQ(some.largest, 10.0);
    ASSERT_EQ(done.size(), 2U);
    EXPECT_GT(done[0], 0U);
    EXPECT_GT(done[1], done[0]);
    EXPECT_LT(done[1], 3000U);
}

TEST(OverlapStatistics, AtomsAtNaNOrInfinityOverlapNothing)
{
    const float nothing = std::numeric_limits<float>::quiet_NaN();
    const float far = std::numeric_limits<float>::infinity();
    const COverlapStatistics statistics = ComputeOverlapStatistics(
        MakeAtoms({MakeAtom(nothing, 20, 5), MakeAtom(20, nothing, 5), MakeAtom(far, far, 5), MakeAtom(-far, 0, 5)}),
        c_World, GoOn);

    EXPECT_EQ(statistics.pairs, 0U);
    EXPECT_EQ(statistics.largest, 0.0);
}

TEST(OverlapStatistics, AnAtomIsOutsideWhenAnyPartOfItIs)
{
    EXPECT_EQ(CountAtomsOutside(MakeAtoms({MakeAtom(5, 5, 5), MakeAtom(95, 95, 5)}), c_World), 0U);
    EXPECT_EQ(CountAtomsOutside(MakeAtoms({MakeAtom(4.999F, 50, 5), MakeAtom(95.001F, 50, 5), MakeAtom(50, 4.999F, 5),
                                           MakeAtom(50, 95.001F, 5)}),
                                c_World),
              4U);
    EXPECT_EQ(CountAtomsOutside(MakeAtoms({MakeAtom(std::numeric_limits<float>::quiet_NaN(), 50, 5)}), c_World), 1U);
}
