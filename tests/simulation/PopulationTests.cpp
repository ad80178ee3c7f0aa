#include "simulation/Population.h"

#include "simulation/SimulationConstants.h"
#include "tests/simulation/CAllocationWatch.h"
#include "tests/simulation/CWorld.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <new>
#include <stdexcept>

namespace
{

CScene MakeScene(CSize<int> world, int atoms, int minRadius, int maxRadius, std::optional<CPoint<int>> start = {})
{
    return {"test", world, atoms, static_cast<std::uint8_t>(minRadius), static_cast<std::uint8_t>(maxRadius), 9, start};
}

TEST(Population, TheDrawsComeInTheOrderXYVxVyRadius)
{
    const CWorld world(MakeScene({300, 200}, 2, 3, 5));
    CRandom random(9);
    for (const CAtom& atom : world.GetAtoms())
    {
        EXPECT_EQ(atom.x, random.GetRandomNumber_Float(5, 295));
        EXPECT_EQ(atom.y, random.GetRandomNumber_Float(5, 195));
        EXPECT_EQ(atom.vx, random.GetRandomNumber_Float(-c_fMaxStartVelocity, c_fMaxStartVelocity));
        EXPECT_EQ(atom.vy, random.GetRandomNumber_Float(-c_fMaxStartVelocity, c_fMaxStartVelocity));
        EXPECT_EQ(atom.speed, std::sqrt(atom.vx * atom.vx + atom.vy * atom.vy));
        EXPECT_EQ(atom.radius, random.GetRandomNumber_Uint8(3, 5));
        EXPECT_EQ(atom.reserved, 0);
    }
}

TEST(Population, WithAStartPointNoPositionIsDrawn)
{
    const CWorld world(MakeScene({300, 200}, 2, 3, 5, CPoint<int>{120, 80}));
    CRandom random(9);
    for (const CAtom& atom : world.GetAtoms())
    {
        EXPECT_EQ(atom.x, 120.0F);
        EXPECT_EQ(atom.y, 80.0F);
        EXPECT_EQ(atom.vx, random.GetRandomNumber_Float(-c_fMaxStartVelocity, c_fMaxStartVelocity));
        EXPECT_EQ(atom.vy, random.GetRandomNumber_Float(-c_fMaxStartVelocity, c_fMaxStartVelocity));
        EXPECT_EQ(atom.radius, random.GetRandomNumber_Uint8(3, 5));
    }
}

TEST(Population, EveryAtomIsInsideTheWalls)
{
    const CWorld world(MakeScene({300, 200}, 5000, 1, 20));
    for (const CAtom& atom : world.GetAtoms())
    {
        EXPECT_GE(atom.x, 20.0F);
        EXPECT_LE(atom.x, 280.0F);
        EXPECT_GE(atom.y, 20.0F);
        EXPECT_LE(atom.y, 180.0F);
        EXPECT_GE(atom.radius, 1);
        EXPECT_LE(atom.radius, 20);
    }
}

TEST(Population, AStartPointOutsideTheWorldIsMovedInside)
{
    const auto getStart = [](CPoint<int> start) {
        const CWorld world(MakeScene({300, 200}, 1, 3, 5, start));
        return CPoint<float>{world.atoms[0].x, world.atoms[0].y};
    };
    EXPECT_EQ(getStart({-50, -1}), (CPoint<float>{5, 5}));
    EXPECT_EQ(getStart({1000, 200}), (CPoint<float>{295, 195}));
    EXPECT_EQ(getStart({4, 196}), (CPoint<float>{5, 195}));
    constexpr int c_iFar = std::numeric_limits<int>::max();
    EXPECT_EQ(getStart({c_iFar, -c_iFar}), (CPoint<float>{295, 5}));
}

// 10 - 32 is below 32, so the bounds of the draw are reversed. The draw is between them, and nothing asserts.
TEST(Population, AWorldNarrowerThanTwoRadiiDrawsBetweenTheReversedBounds)
{
    const CWorld world(MakeScene({10, 200}, 1000, 1, 32));
    for (const CAtom& atom : world.GetAtoms())
    {
        EXPECT_GE(atom.x, -22.0F);
        EXPECT_LE(atom.x, 32.0F);
        EXPECT_GE(atom.y, 32.0F);
        EXPECT_LE(atom.y, 168.0F);
    }
}

TEST(Population, AWorldNarrowerThanTwoRadiiWithAStartPointGivesTheRadius)
{
    const CWorld world(MakeScene({10, 200}, 1, 1, 32, CPoint<int>{5, 100}));
    EXPECT_EQ(world.atoms[0].x, 32.0F);
    EXPECT_EQ(world.atoms[0].y, 100.0F);
}

TEST(Population, InAWorldOfExactlyTwoRadiiAllAtomsAreInTheMiddle)
{
    const CWorld world(MakeScene({64, 64}, 100, 1, 32));
    for (const CAtom& atom : world.GetAtoms())
    {
        EXPECT_EQ(atom.x, 32.0F);
        EXPECT_EQ(atom.y, 32.0F);
    }
}

TEST(Population, EqualRadiiGiveEveryAtomThatRadius)
{
    const CWorld world(MakeScene({300, 200}, 500, 7, 7));
    for (const CAtom& atom : world.GetAtoms())
    {
        EXPECT_EQ(atom.radius, 7);
    }
}

TEST(Population, WithOneAtomAllVelocitiesAreItsSpeed)
{
    const CWorld world(MakeScene({300, 200}, 1, 3, 5));
    const float speed = world.atoms[0].speed;
    EXPECT_EQ(world.atoms.GetVelocities(), (CVelocityStatistics{speed, speed, speed, speed}));
}

// sqrt(2) * (sqrt(2) + ln(1 + sqrt(2))) / 3 = 1.0820, which the user guide calls "about 1.0".
TEST(Population, TheMeanSpeedIsAbout1)
{
    const CWorld world(MakeScene({1000, 1000}, 100'000, 3, 5));
    EXPECT_NEAR(world.atoms.GetAvgVelocity(), 1.0820F, 0.01F);
}

TEST(Population, RestartingReplacesTheAtomsAndTheCells)
{
    CWorld world(MakeScene({500, 500}, 100, 3, 5));
    EXPECT_EQ(world.grid.GetCellCount(), 25);
    Populate(world.atoms, world.grid, {200, 100}, 10, 3, 5, nullptr, world.random);
    EXPECT_EQ(world.atoms.GetCount(), 10);
    EXPECT_EQ(world.grid.GetCellCount(), 2);
    Populate(world.atoms, world.grid, {900, 800}, 20, 3, 5, nullptr, world.random);
    EXPECT_EQ(world.atoms.GetCount(), 20);
    EXPECT_EQ(world.grid.GetCellCount(), 72);
}

TEST(Population, EveryAtomIsEnteredIntoTheGrid)
{
    CWorld world(MakeScene({300, 300}, 200, 3, 5));
    std::vector<CAtom*> entered;
    for (int cell = 0; cell < world.grid.GetCellCount(); ++cell)
    {
        const auto atoms = world.grid.GetCellAtoms(cell);
        entered.insert(entered.end(), atoms.begin(), atoms.end());
    }
    for (std::int32_t i = 0; i < world.atoms.GetCount(); ++i)
    {
        EXPECT_NE(std::find(entered.begin(), entered.end(), &world.atoms[i]), entered.end());
    }
}

TEST(Population, OutOfMemoryLeavesAnEmptyUsableWorld)
{
    CWorld world(MakeScene({500, 500}, 100, 3, 5));
    {
        const CAllocationLimit limit(100'000);
        EXPECT_THROW(Populate(world.atoms, world.grid, {500, 500}, 100'000, 3, 5, nullptr, world.random),
                     std::bad_alloc);
    }
    EXPECT_EQ(world.atoms.GetCount(), 0);
    EXPECT_EQ(world.Advance(), 0U);
    Populate(world.atoms, world.grid, {500, 500}, 100'000, 3, 5, nullptr, world.random);
    EXPECT_EQ(world.atoms.GetCount(), 100'000);
}

// The atoms get their memory, but when some are entered the grid gets no more: it must not keep the freed ones.
TEST(Population, OutOfMemoryBetweenTwoAtomsLeavesAnEmptyGrid)
{
    CWorld world(MakeScene({500, 500}, 100, 3, 5));
    {
        const CAllocationLimit limit(2000, 1);
        EXPECT_THROW(Populate(world.atoms, world.grid, {500, 500}, 5000, 3, 5, nullptr, world.random), std::bad_alloc);
    }
    EXPECT_EQ(world.atoms.GetCount(), 0);
    for (int cell = 0; cell < world.grid.GetCellCount(); ++cell)
    {
        EXPECT_TRUE(world.grid.GetCellAtoms(cell).empty()) << "cell " << cell;
    }
}

TEST(Population, ANegativeCountThrowsLengthErrorAndLeavesAnEmptyWorld)
{
    CWorld world(MakeScene({500, 500}, 100, 3, 5));
    EXPECT_THROW(Populate(world.atoms, world.grid, {500, 500}, -5, 3, 5, nullptr, world.random), std::length_error);
    EXPECT_EQ(world.atoms.GetCount(), 0);
    EXPECT_TRUE(world.grid.GetCellAtoms(0).empty());
}

TEST(Population, AStartEqualsThePlainForm)
{
    for (const CScene& scene : {c_SceneDefault, c_SceneFilled, c_SceneBurst})
    {
        EXPECT_TRUE(IsSameWorld(CWorld(scene), MakeReference(scene))) << scene.name;
    }
}

} // namespace
