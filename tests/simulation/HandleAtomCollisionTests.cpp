#include "simulation/HandleAtomCollision.h"

#include "simulation/SimulationConstants.h"
#include "tests/simulation/CWorld.h"
#include "tests/simulation/SameAtom.h"

#include <cmath>
#include <random>

namespace
{

constexpr float c_fTolerance = 1e-4F;

float GetDistance(const CAtom& a, const CAtom& b)
{
    return std::hypot(a.x - b.x, a.y - b.y);
}

TEST(AtomCollision, AtomsThatDoNotTouchAreLeftAlone)
{
    CRandom random(1);
    CAtom a = MakeAtom(10, 10, 1, 0, 3);
    CAtom b = MakeAtom(16.01F, 10, -1, 0, 3);
    const CAtom oldA = a;
    const CAtom oldB = b;
    HandleAtomCollision(a, b, random);
    EXPECT_TRUE(IsSameAtom(a, oldA));
    EXPECT_TRUE(IsSameAtom(b, oldB));
}

// Distance 6, radii 3 and 3: no overlap, but the velocities along the normal are exchanged.
TEST(AtomCollision, ExactlyTouchingAtomsExchangeTheirNormalVelocitiesAndStayInPlace)
{
    CRandom random(1);
    CAtom a = MakeAtom(10, 10, 1, 0.5F, 3);
    CAtom b = MakeAtom(16, 10, -2, 0.25F, 3);
    const float speedSum = a.speed + b.speed;
    HandleAtomCollision(a, b, random);
    EXPECT_EQ(a.x, 10.0F);
    EXPECT_EQ(b.x, 16.0F);
    EXPECT_LT(a.vx, -1.5F);
    EXPECT_GT(b.vx, 0.5F);
    EXPECT_NEAR(a.speed + b.speed, speedSum, c_fTolerance);
}

TEST(AtomCollision, HeadOnAtomsOfEqualSpeedSwapTheirNormalVelocities)
{
    CRandom random(1);
    CAtom a = MakeAtom(10, 10, 1, 0, 3);
    CAtom b = MakeAtom(15, 10, -1, 0, 3);
    HandleAtomCollision(a, b, random);
    EXPECT_FLOAT_EQ(a.vx, -1);
    EXPECT_FLOAT_EQ(b.vx, 1);
    EXPECT_EQ(a.vy, 0.0F);
    EXPECT_EQ(b.vy, 0.0F);
    EXPECT_EQ(a.speed + b.speed, 2.0F);
}

TEST(AtomCollision, OverlappingAtomsArePushedApartHalfEachUntilTheyJustTouch)
{
    CRandom random(1);
    CAtom a = MakeAtom(10, 10, 1, 0, 3);
    CAtom b = MakeAtom(14, 10, -1, 0, 5);
    HandleAtomCollision(a, b, random);
    EXPECT_FLOAT_EQ(a.x, 8);
    EXPECT_FLOAT_EQ(b.x, 16);
    EXPECT_EQ(a.y, 10.0F);
    EXPECT_NEAR(GetDistance(a, b), 8, 0.0011);
}

TEST(AtomCollision, RecedingAtomsExchangeTheirVelocitiesToo)
{
    CRandom random(1);
    CAtom a = MakeAtom(10, 10, -1, 0, 3);
    CAtom b = MakeAtom(15, 10, 1, 0, 3);
    HandleAtomCollision(a, b, random);
    EXPECT_FLOAT_EQ(a.vx, 1);
    EXPECT_FLOAT_EQ(b.vx, -1);
}

// A large atom has the same mass as a small one.
TEST(AtomCollision, TheRadiusDoesNotChangeTheMass)
{
    CRandom random(1);
    CAtom a = MakeAtom(100, 100, 2, 0, 32);
    CAtom b = MakeAtom(130, 100, 0.5F, 0, 1);
    HandleAtomCollision(a, b, random);
    EXPECT_FLOAT_EQ(a.vx, 0.5F);
    EXPECT_FLOAT_EQ(b.vx, 2);
}

// The exchange leaves a at rest, because b had no velocity along the normal. So only b is rescaled.
TEST(AtomCollision, AnAtomAtRestIsNotRescaled)
{
    CRandom random(1);
    CAtom a = MakeAtom(10, 10, 1, 0, 3);
    CAtom b = MakeAtom(16, 10, 0, 0.5F, 3);
    const float speedSum = a.speed + b.speed;
    HandleAtomCollision(a, b, random);
    EXPECT_EQ(a.vx, 0.0F);
    EXPECT_EQ(a.vy, 0.0F);
    EXPECT_EQ(a.speed, 0.0F);
    // b now has the velocity (1, 0.5), a speed of 1.118, and gets half of the missing 0.382.
    const float unscaled = std::sqrt(1.25F);
    EXPECT_NEAR(b.speed, unscaled + (speedSum - unscaled) / 2, c_fTolerance);
    EXPECT_NEAR(b.vx / b.vy, 2, c_fTolerance);
}

TEST(AtomCollision, TwoAtomsAtRestStayAtRest)
{
    CRandom random(1);
    CAtom a = MakeAtom(10, 10, 0, 0, 3);
    CAtom b = MakeAtom(15, 10, 0, 0, 3);
    HandleAtomCollision(a, b, random);
    EXPECT_EQ(a.speed, 0.0F);
    EXPECT_EQ(b.speed, 0.0F);
    EXPECT_EQ(a.x, 9.5F);
}

// The range of speeds at rest is inclusive: 1e-5 is at rest.
TEST(AtomCollision, ASpeedOfExactlyTheRestSpeedIsNotRescaled)
{
    CRandom random(1);
    const float rest = 1e-5F;
    CAtom a = MakeAtom(10, 10, 1, 0, 3);
    CAtom b = MakeAtom(16, 10, rest, 0, 3);
    b.speed = 1; // not the speed of b, so that the sum has to be corrected
    HandleAtomCollision(a, b, random);
    EXPECT_EQ(a.vx, rest);
    EXPECT_GT(b.vx, 1.4F);
}

// The band ends there: the plain form has the speed as a number of its own.
TEST(AtomCollision, ASpeedJustAboveTheRestSpeedIsRescaled)
{
    for (const float speed : {1.0001e-5F, 1.1e-5F, 1.5e-5F, 2e-5F})
    {
        CRandom random(1);
        CAtom a = MakeAtom(10, 10, 1, 0, 3);
        CAtom b = MakeAtom(16, 10, speed, 0, 3);
        b.speed = 1; // not the speed of b, so that the sum has to be corrected
        CAtom referenceA = a;
        CAtom referenceB = b;
        HandleAtomCollision(a, b, random);
        EXPECT_GT(a.vx, 0.4F) << speed;
        ReferenceCollision(referenceA, referenceB, random);
        EXPECT_TRUE(IsSameAtom(a, referenceA)) << speed;
        EXPECT_TRUE(IsSameAtom(b, referenceB)) << speed;
    }
}

TEST(AtomCollision, TheSpeedSumIsConserved)
{
    CRandom random(1);
    std::mt19937 draw(3);
    std::uniform_real_distribution<float> velocity(-2, 2);
    std::uniform_real_distribution<float> offset(-4, 4);
    for (int round = 0; round < 1000; ++round)
    {
        CAtom a = MakeAtom(50, 50, velocity(draw), velocity(draw), 3);
        CAtom b = MakeAtom(50 + offset(draw), 50 + offset(draw), velocity(draw), velocity(draw), 3);
        const float before = a.speed + b.speed;
        HandleAtomCollision(a, b, random);
        // If one of the two nearly comes to rest, the correction would reverse it and cannot restore the sum.
        if (a.speed > 0.5F && b.speed > 0.5F)
        {
            EXPECT_NEAR(a.speed + b.speed, before, 1e-3F);
        }
        EXPECT_NEAR(a.speed, std::hypot(a.vx, a.vy), c_fTolerance);
        EXPECT_NEAR(b.speed, std::hypot(b.vx, b.vy), c_fTolerance);
    }
}

// At 9,000 the spacing of floats is 0.00098. An overlap just above the tolerance of 0.001 asks for moves of half of it
// per atom, times the cosine of the direction, which round to zero. A loop until the overlap is gone would never end.
TEST(AtomCollision, ASeparationThatRoundsToZeroEnds)
{
    CRandom random(1);
    int stalled = 0;
    for (int angle = 0; angle < 360; ++angle)
    {
        const float radians = static_cast<float>(angle) * 0.01745329F;
        CAtom a = MakeAtom(9000, 9500, 1, 0.25F, 5);
        CAtom b = MakeAtom(9000 + 9.9985F * std::cos(radians), 9500 + 9.9985F * std::sin(radians), -1, 0.5F, 5);
        CAtom referenceA = a;
        CAtom referenceB = b;
        HandleAtomCollision(a, b, random);
        stalled += 10 - GetDistance(a, b) > 0.0011F ? 1 : 0;
        EXPECT_TRUE(a.vx != 1 || a.vy != 0.25F) << "the response must use the normal all the same";
        ReferenceCollision(referenceA, referenceB, random);
        EXPECT_TRUE(IsSameAtom(a, referenceA)) << "at " << angle << " degrees";
        EXPECT_TRUE(IsSameAtom(b, referenceB)) << "at " << angle << " degrees";
    }
    EXPECT_GT(stalled, 0) << "no separation rounded to zero, so nothing was tested";
}

TEST(AtomCollision, ANanPositionTouchesNothing)
{
    CRandom random(1);
    CAtom a = MakeAtom(std::nanf(""), 50, 1, 0, 5);
    CAtom b = MakeAtom(50, 50, -1, 0, 5);
    HandleAtomCollision(a, b, random);
    EXPECT_EQ(a.vx, 1.0F);
    EXPECT_EQ(b.vx, -1.0F);
    EXPECT_EQ(b.x, 50.0F);
}

// Random pairs of all distances, radii and places, each compared with the plain form for the same random numbers.
TEST(AtomCollision, EveryPairEqualsThePlainForm)
{
    std::mt19937 draw(11);
    CRandom random(5);
    CRandom referenceRandom(5);
    for (int round = 0; round < 100'000; ++round)
    {
        std::uniform_real_distribution<float> place(0, round % 2 == 0 ? 100.0F : 9999.0F);
        std::uniform_real_distribution<float> velocity(-3, 3);
        std::uniform_int_distribution<int> radius(1, 255);
        CAtom a = MakeAtom(place(draw), place(draw), velocity(draw), velocity(draw),
                           static_cast<std::uint8_t>(radius(draw) % (round % 3 == 0 ? 256 : 32)));
        CAtom b = MakeAtom(0, 0, velocity(draw), velocity(draw), static_cast<std::uint8_t>(1 + radius(draw) % 32));
        const auto reach = static_cast<float>(a.radius + b.radius);
        std::uniform_real_distribution<float> offset(-reach, reach);
        const float nearness = round % 5 == 0 ? 1e-4F : 1.0F; // every fifth pair is nearly coincident
        b.x = a.x + offset(draw) * nearness;
        b.y = a.y + offset(draw) * nearness;
        CAtom referenceA = a;
        CAtom referenceB = b;
        HandleAtomCollision(a, b, random);
        ReferenceCollision(referenceA, referenceB, referenceRandom);
        ASSERT_TRUE(IsSameAtom(a, referenceA)) << "round " << round;
        ASSERT_TRUE(IsSameAtom(b, referenceB)) << "round " << round;
    }
}

} // namespace
