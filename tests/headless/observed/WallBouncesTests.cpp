#include "headless/observed/WallBounces.h"
#include "tests/headless/HeadlessTesting.h"
#include "tests/reference/CReferenceWorld.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{

constexpr CSize<int> c_World = {200, 100};

const CWallBounces& At(const CBouncesOfWalls& bounces, EnumWall eWall)
{
    return bounces[static_cast<std::size_t>(eWall)];
}

// The bounces of one atom of radius 5 in the next iteration.
CBouncesOfWalls GetNextBounces(float x, float y, float vx, float vy)
{
    CAtom atom = MakeAtom(x, y, 5);
    atom.vx = vx;
    atom.vy = vy;
    CBouncesOfWalls bounces{};
    AddNextBounces(bounces, MakeAtoms({atom}), c_World);
    return bounces;
}

CBouncesOfWalls OnlyAt(EnumWall eWall, double impulse)
{
    CBouncesOfWalls bounces{};
    bounces[static_cast<std::size_t>(eWall)] = {1, impulse};
    return bounces;
}

CAtoms CopyAtoms(const std::vector<CAtom>& atoms)
{
    CAtoms copy;
    copy.Allocate(static_cast<std::int32_t>(atoms.size()));
    std::copy(atoms.begin(), atoms.end(), copy.GetAtoms());
    return copy;
}

void AddFlip(CBouncesOfWalls& bounces, EnumWall eLow, EnumWall eHigh, bool bLow, float before, float after)
{
    if (std::signbit(before) != std::signbit(after))
    {
        CWallBounces& wall = bounces[static_cast<std::size_t>(bLow ? eLow : eHigh)];
        ++wall.count;
        wall.impulse += std::fabs(static_cast<double>(after) - static_cast<double>(before));
    }
}

// Lets the plain iteration move its atoms, and sees from their velocities which of them have bounced. A collision
// changes velocities later.
CBouncesOfWalls AdvanceAndCountFlips(CReferenceWorld& world, const CSize<int>& size)
{
    const std::vector<CAtom> before = world.GetAtoms();
    world.ClearCells();
    world.MoveAndEnter();
    CBouncesOfWalls bounces{};
    for (std::size_t u = 0; u < before.size(); ++u)
    {
        const CAtom& from = before[u];
        const CAtom& to = world.GetAtoms()[u];
        const bool bLeft = from.x + from.vx < static_cast<float>(size.cx) / 2;
        const bool bTop = from.y + from.vy < static_cast<float>(size.cy) / 2;
        AddFlip(bounces, EnumWall::Left, EnumWall::Right, bLeft, from.vx, to.vx);
        AddFlip(bounces, EnumWall::Top, EnumWall::Bottom, bTop, from.vy, to.vy);
    }
    world.CollideAll();
    return bounces;
}

// Compares every iteration, and returns the sum over all.
CBouncesOfWalls CompareWithThePlainIteration(CReferenceWorld& world, const CSize<int>& size, int iterations)
{
    CBouncesOfWalls all{};
    for (int iteration = 0; iteration < iterations; ++iteration)
    {
        const CAtoms atoms = CopyAtoms(world.GetAtoms());
        CBouncesOfWalls expected{};
        AddNextBounces(expected, atoms, size);
        AddNextBounces(all, atoms, size);

        EXPECT_EQ(AdvanceAndCountFlips(world, size), expected) << "iteration " << iteration;
    }
    return all;
}

void ExpectEveryWall(const CBouncesOfWalls& bounces, std::uint64_t uLeast)
{
    for (const CWallBounces& wall : bounces)
    {
        EXPECT_GE(wall.count, uLeast);
        EXPECT_GT(wall.impulse, 0.0);
    }
}

} // namespace

TEST(WallBounces, EachWallCountsItsOwn)
{
    EXPECT_EQ(GetNextBounces(6, 50, -2, 0.5F), OnlyAt(EnumWall::Left, 4));
    EXPECT_EQ(GetNextBounces(194, 50, 2.5F, 0.5F), OnlyAt(EnumWall::Right, 5));
    EXPECT_EQ(GetNextBounces(50, 6, 0.5F, -3), OnlyAt(EnumWall::Top, 6));
    EXPECT_EQ(GetNextBounces(50, 94, 0.5F, 1.5F), OnlyAt(EnumWall::Bottom, 3));
    EXPECT_EQ(GetNextBounces(50, 50, 1, 1), CBouncesOfWalls{});
}

TEST(WallBounces, AnAtomThatJustTouchesAWallDoesNotBounce)
{
    EXPECT_EQ(GetNextBounces(7, 50, -2, 0), CBouncesOfWalls{});
    EXPECT_EQ(GetNextBounces(193, 50, 2, 0), CBouncesOfWalls{});
    EXPECT_EQ(GetNextBounces(50, 7, 0, -2), CBouncesOfWalls{});
    EXPECT_EQ(GetNextBounces(50, 93, 0, 2), CBouncesOfWalls{});
    EXPECT_EQ(At(GetNextBounces(std::nextafter(7.0F, 0.0F), 50, -2, 0), EnumWall::Left).count, 1U);
}

TEST(WallBounces, ACornerCountsAtBothItsWalls)
{
    const CBouncesOfWalls bounces = GetNextBounces(194, 6, 2, -3);

    EXPECT_EQ(At(bounces, EnumWall::Right), (CWallBounces{1, 4}));
    EXPECT_EQ(At(bounces, EnumWall::Top), (CWallBounces{1, 6}));
    EXPECT_EQ(At(bounces, EnumWall::Left).count + At(bounces, EnumWall::Bottom).count, 0U);
}

// The rule reflects an atom that is beyond a wall, also where it was on its way back.
TEST(WallBounces, AnAtomOutsideBouncesWhicheverWayItGoes)
{
    EXPECT_EQ(GetNextBounces(-10, 50, 3, 0), OnlyAt(EnumWall::Left, 6));
    EXPECT_EQ(GetNextBounces(-10, 50, -3, 0), OnlyAt(EnumWall::Left, 6));
    EXPECT_EQ(GetNextBounces(210, 50, 0, 0), OnlyAt(EnumWall::Right, 0));
    EXPECT_EQ(GetNextBounces(-10, 50, 30, 0), CBouncesOfWalls{});
}

TEST(WallBounces, AnAtomTooLargeForTheWorldBouncesAtOneWallOnly)
{
    CAtom atom = MakeAtom(10, 4, 15);
    atom.vx = 1;
    CBouncesOfWalls bounces{};
    AddNextBounces(bounces, MakeAtoms({atom}), {20, 8});

    EXPECT_EQ(At(bounces, EnumWall::Left), (CWallBounces{1, 2}));
    EXPECT_EQ(At(bounces, EnumWall::Top), (CWallBounces{1, 0}));
    EXPECT_EQ(At(bounces, EnumWall::Right).count + At(bounces, EnumWall::Bottom).count, 0U);
}

TEST(WallBounces, APositionThatIsNoNumberDoesNotBounce)
{
    constexpr float c_fNaN = std::numeric_limits<float>::quiet_NaN();
    EXPECT_EQ(GetNextBounces(c_fNaN, 50, 1, 0), CBouncesOfWalls{});
}

TEST(WallBounces, AreAddedToThoseBefore)
{
    CAtom atom = MakeAtom(194, 50, 5);
    atom.vx = 2;
    CBouncesOfWalls bounces{};
    AddNextBounces(bounces, MakeAtoms({atom, atom}), c_World);
    AddNextBounces(bounces, MakeAtoms({atom}), c_World);

    EXPECT_EQ(At(bounces, EnumWall::Right), (CWallBounces{3, 12}));
}

TEST(WallBounces, AreThoseOfThePlainIteration)
{
    struct CCase
    {
        CSize<int> size;
        int atoms;
        std::uint8_t minRadius;
        std::uint8_t maxRadius;
        int iterations;
    };
    for (const CCase& world : {CCase{{512, 512}, 256, 3, 5, 1000}, CCase{{100, 300}, 100, 1, 10, 1000},
                               CCase{{701, 99}, 400, 1, 1, 1000}, CCase{{300, 300}, 2000, 2, 9, 100}})
    {
        CReferenceWorld reference(world.size, 5);
        reference.Populate(world.atoms, world.minRadius, world.maxRadius, std::nullopt);

        ExpectEveryWall(CompareWithThePlainIteration(reference, world.size, world.iterations), 50);
    }
}

TEST(WallBounces, AreThoseOfThePlainIterationAfterABurst)
{
    CReferenceWorld reference({300, 200}, 8);
    reference.Populate(500, 1, 7, CPoint<int>{20, 190});

    ExpectEveryWall(CompareWithThePlainIteration(reference, {300, 200}, 300), 50);
}

// Speeds beyond the size of the world put atoms far outside.
TEST(WallBounces, AreThoseOfThePlainIterationAtHighSpeed)
{
    for (const float fFactor : {50.0F, 400.0F, 1e5F})
    {
        CReferenceWorld reference({200, 150}, 3);
        reference.Populate(60, 2, 6, std::nullopt);
        for (CAtom& atom : reference.GetAtoms())
        {
            atom.vx *= fFactor;
            atom.vy *= -fFactor;
        }
        ExpectEveryWall(CompareWithThePlainIteration(reference, {200, 150}, 200), 200);
    }
}

TEST(Pressure, IsTheImpulsePerLengthOfWallAndIteration)
{
    const CBouncesOfWalls bounces = {{{1, 600}, {7, 1200}, {0, 0}, {2, 2400}}};

    EXPECT_EQ(ComputePressure(bounces, c_World, 1), 7.0);
    EXPECT_EQ(ComputePressure(bounces, c_World, 10), 0.7);
    EXPECT_EQ(ComputePressure(CBouncesOfWalls{}, c_World, 3), 0.0);
}
