#include "simulation/HandleAtomCollision.h"

#include "simulation/SimulationConstants.h"
#include "tests/simulation/CWorld.h"

#include <cmath>
#include <cstdint>

// Two atoms whose centres coincide have no line of centres, so random numbers move them apart first.

namespace
{

constexpr float c_fTolerance = 1e-4F;

float GetDistance(const CAtom& a, const CAtom& b)
{
    return std::hypot(a.x - b.x, a.y - b.y);
}

TEST(AtomCollision, AtomsAtTheSameCentreAreJitteredAndThenPushedApart)
{
    CRandom random(1);
    CAtom a = MakeAtom(50, 60, 1, 0, 4);
    CAtom b = MakeAtom(50, 60, -1, 0, 5);
    HandleAtomCollision(a, b, random);
    // The separation removes the overlap that existed before the jitter; the jitter itself (at most 0.2 per axis) is
    // added.
    EXPECT_GE(GetDistance(a, b), 9 - 0.0011);
    EXPECT_LE(GetDistance(a, b), 9 + 0.283);
    // Both move in opposite directions, so the middle stays, except for rounding.
    EXPECT_NEAR((a.x + b.x) / 2, 50, c_fTolerance);
    EXPECT_NEAR((a.y + b.y) / 2, 60, c_fTolerance);
}

// One jitter moves the two centres apart by at most 0.2 per axis, in the direction of two draws of the generator.
TEST(AtomCollision, TheJitterDrawsOneNumberPerAxis)
{
    CRandom random(42);
    CRandom expected(42);
    const float jx = expected.GetRandomNumber_Float(-c_fMaxJitter, c_fMaxJitter);
    const float jy = expected.GetRandomNumber_Float(-c_fMaxJitter, c_fMaxJitter);
    CAtom a = MakeAtom(50, 60, 0, 0, 4);
    CAtom b = MakeAtom(50, 60, 0, 0, 4);
    HandleAtomCollision(a, b, random);
    EXPECT_NEAR(std::atan2(a.y - b.y, a.x - b.x), std::atan2(jy, jx), 1e-3F);
    EXPECT_EQ(random.GetRandomNumber_Float(0, 1), expected.GetRandomNumber_Float(0, 1));
}

TEST(AtomCollision, AtomsWithDifferentCentresDrawNoRandomNumber)
{
    CRandom random(42);
    CRandom untouched(42);
    CAtom a = MakeAtom(50, 60, 1, 0, 4);
    CAtom b = MakeAtom(52, 60, 0, 1, 4);
    HandleAtomCollision(a, b, random);
    EXPECT_EQ(random.GetRandomNumber_Float(0, 1), untouched.GetRandomNumber_Float(0, 1));
}

// Here the spacing of floats is 0.125, so a jitter below 0.0625 rounds to zero. Both do so in two of five first draws.
TEST(AtomCollision, TheJitterIsDrawnAgainUntilTheCentresDiffer)
{
    for (std::uint64_t seed = 0; seed < 100; ++seed)
    {
        CRandom random(seed);
        CAtom a = MakeAtom(1'500'000, 1'600'000, 1, 0.25F, 5);
        CAtom b = MakeAtom(1'500'000, 1'600'000, -1, 0.5F, 5);
        HandleAtomCollision(a, b, random);
        EXPECT_NEAR(GetDistance(a, b), 10, 0.6F) << "seed " << seed;
    }
}

// Far outside the world a jitter of 0.1 rounds to zero: no number of draws separates two centres there.
TEST(AtomCollision, CoincidentAtomsTooFarOutForJitterAreLeftAlone)
{
    CRandom random(1);
    CAtom a = MakeAtom(1e9F, -1e9F, 1, 0.25F, 5);
    CAtom b = MakeAtom(1e9F, -1e9F, -1, 0.5F, 5);
    HandleAtomCollision(a, b, random);
    EXPECT_EQ(a.x, 1e9F);
    EXPECT_EQ(a.vx, 1.0F);
    EXPECT_EQ(b.vx, -1.0F);
}

// One coordinate that jitter can change is enough.
TEST(AtomCollision, CoincidentAtomsFarOutOnOneAxisSeparateAlongTheOther)
{
    CRandom random(1);
    CAtom a = MakeAtom(1e9F, 50, 1, 0.25F, 5);
    CAtom b = MakeAtom(1e9F, 50, -1, 0.5F, 5);
    HandleAtomCollision(a, b, random);
    EXPECT_EQ(a.x, b.x);
    EXPECT_GE(std::abs(a.y - b.y), 10 - 0.0011);
    EXPECT_LE(std::abs(a.y - b.y), 10 + 0.2);
}

} // namespace
