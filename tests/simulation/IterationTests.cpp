#include "simulation/Iteration.h"

#include "simulation/SimulationConstants.h"
#include "simulation/SpeedStatistics.h"
#include "tests/simulation/CAllocationWatch.h"
#include "tests/simulation/CWorld.h"

#include <cmath>
#include <limits>

namespace
{

CWorld MakeWorld(int width, int height, const std::vector<CAtom>& atoms)
{
    CWorld world({width, height});
    world.SetAtoms(atoms);
    return world;
}

TEST(Iteration, AnAtomMovesByItsVelocity)
{
    CWorld world = MakeWorld(100, 100, {MakeAtom(20, 30, 1.5F, -2.25F, 3)});
    EXPECT_EQ(world.Advance(), 0U);
    EXPECT_EQ(world.atoms[0].x, 21.5F);
    EXPECT_EQ(world.atoms[0].y, 27.75F);
}

TEST(Iteration, CrossingAWallMirrorsPositionAndVelocityAndKeepsTheSpeed)
{
    CWorld world = MakeWorld(
        100, 80,
        {MakeAtom(4, 40, -2, 0, 3), MakeAtom(96, 20, 2, 0, 3), MakeAtom(50, 4, 0, -2, 3), MakeAtom(20, 76, 0, 2, 3)});
    world.Advance();
    EXPECT_EQ(world.atoms[0].x, 4.0F); // x = 2, mirrored at 3
    EXPECT_EQ(world.atoms[0].vx, 2.0F);
    EXPECT_EQ(world.atoms[1].x, 96.0F);
    EXPECT_EQ(world.atoms[1].vx, -2.0F);
    EXPECT_EQ(world.atoms[2].y, 4.0F);
    EXPECT_EQ(world.atoms[2].vy, 2.0F);
    EXPECT_EQ(world.atoms[3].y, 76.0F);
    EXPECT_EQ(world.atoms[3].vy, -2.0F);
    for (const CAtom& atom : world.GetAtoms())
    {
        EXPECT_EQ(atom.speed, 2.0F);
    }
}

TEST(Iteration, TouchingAWallExactlyIsNoBounce)
{
    CWorld world = MakeWorld(100, 80, {MakeAtom(5, 5, -2, -2, 3), MakeAtom(95, 75, 2, 2, 3)});
    world.Advance();
    EXPECT_EQ(world.atoms[0].x, 3.0F);
    EXPECT_EQ(world.atoms[0].vx, -2.0F);
    EXPECT_EQ(world.atoms[0].vy, -2.0F);
    EXPECT_EQ(world.atoms[1].x, 97.0F);
    EXPECT_EQ(world.atoms[1].y, 77.0F);
    EXPECT_EQ(world.atoms[1].vx, 2.0F);
}

TEST(Iteration, AnAtomFasterThanItsRadiusIsMirroredOnce)
{
    CWorld world = MakeWorld(100, 80, {MakeAtom(10, 40, -30, 0, 3)});
    world.Advance();
    EXPECT_EQ(world.atoms[0].x, 26.0F); // x = -20, mirrored at 3
    EXPECT_EQ(world.atoms[0].vx, 30.0F);
}

// 300 units to the left in a world of 100: mirrored at x = 3 the atom is at 296, and nothing clamps it. The next
// iteration moves it to 596 and mirrors it at 97, and so on.
TEST(Iteration, AnAtomFasterThanTheWorldStaysOutsideUntilALaterIteration)
{
    CWorld world = MakeWorld(100, 80, {MakeAtom(10, 40, -300, 0, 3)});
    world.Advance();
    EXPECT_EQ(world.atoms[0].x, 296.0F);
    EXPECT_EQ(world.atoms[0].vx, 300.0F);
    world.Advance();
    EXPECT_EQ(world.atoms[0].x, -402.0F);
    EXPECT_EQ(world.atoms[0].vx, -300.0F);
}

TEST(Iteration, ThePairOfTwoTouchingAtomsCountsOnce)
{
    CWorld world = MakeWorld(100, 100, {MakeAtom(50, 50, 0, 0, 3), MakeAtom(55, 50, 0, 0, 3)});
    EXPECT_EQ(world.Advance(), 1U);
}

TEST(Iteration, ExactlyTouchingAtomsCollide)
{
    CWorld world = MakeWorld(100, 100, {MakeAtom(50, 50, 0, 0, 3), MakeAtom(56, 50, 0, 0, 3)});
    EXPECT_EQ(world.Advance(), 1U);
}

// Both atoms cross the edge x = 100, so they share two cells. They touch exactly, so the first response leaves them in
// place and the second cell finds them again; two exchanges restore the velocities.
TEST(Iteration, APairThatSharesTwoCellsIsHandledTwice)
{
    CWorld world = MakeWorld(200, 100, {MakeAtom(99, 40, 0, 0.5F, 3), MakeAtom(99, 46, 0, 0.5F, 3)});
    EXPECT_EQ(world.Advance(), 2U);
    EXPECT_EQ(world.atoms[0].vy, 0.5F);
}

TEST(Iteration, APairAtACornerOfFourCellsIsHandledFourTimes)
{
    CWorld world = MakeWorld(200, 200, {MakeAtom(98, 100, 0, 0, 3), MakeAtom(102, 100, 0, 0, 5)});
    EXPECT_EQ(world.Advance(), 4U);
}

// The first pair is pushed apart before the second is tested, so the second overlaps more than at the start.
TEST(Iteration, APairTestUsesThePositionsThatEarlierResponsesLeft)
{
    CWorld world =
        MakeWorld(100, 100, {MakeAtom(53, 50, 0, 0, 3), MakeAtom(55, 50, 0, 0, 3), MakeAtom(48, 50, 0, 0, 3)});
    // Pair (0, 1) overlaps by 4 and moves atom 0 to 51; then (0, 2) overlaps by 3 instead of 1 and moves it to 52.5.
    EXPECT_EQ(world.Advance(), 2U);
    EXPECT_FLOAT_EQ(world.atoms[0].x, 52.5F);
    EXPECT_FLOAT_EQ(world.atoms[1].x, 57);
    EXPECT_FLOAT_EQ(world.atoms[2].x, 46.5F);
}

// Atoms of radius 1 in one cell of 100 x 100, none of which touch except the last two, which overlap.
std::vector<CAtom> MakeCrowd(std::size_t count)
{
    constexpr std::size_t c_uPerRow = 33;
    std::vector<CAtom> atoms;
    for (std::size_t i = 0; i + 1 < count; ++i)
    {
        const std::size_t row = i / c_uPerRow;
        atoms.push_back(MakeAtom(2 + 3 * static_cast<float>(i % c_uPerRow), 2 + 3 * static_cast<float>(row), 0, 0, 1));
    }
    CAtom last = atoms.back();
    last.x += 1.5F;
    atoms.push_back(last);
    return atoms;
}

TEST(Iteration, InACellOf1000AtomsTheLastIsTested)
{
    CWorld world = MakeWorld(100, 100, MakeCrowd(1000));
    EXPECT_EQ(world.Advance(), 1U);
}

TEST(Iteration, InACellOf1001AtomsTheLastIsNotTested)
{
    CWorld world = MakeWorld(100, 100, MakeCrowd(1001));
    EXPECT_EQ(world.Advance(), 0U);
}

// 1,000 atoms fill the left cell. Two more at its right edge exceed its cap, but are also in the nearly empty right
// cell.
TEST(Iteration, AnAtomBeyondTheCapIsStillTestedInANeighbouringCell)
{
    std::vector<CAtom> atoms = MakeCrowd(1000);
    atoms.pop_back();
    atoms.push_back(MakeAtom(2, 98, 0, 0, 1));
    atoms.push_back(MakeAtom(99.5F, 97, 0, 0, 1));
    atoms.push_back(MakeAtom(99.5F, 98.5F, 0, 0, 1));
    CWorld world = MakeWorld(200, 100, atoms);
    EXPECT_EQ(world.Advance(), 1U);
}

TEST(Iteration, WithOneAtomAllVelocitiesAreItsSpeed)
{
    CWorld world = MakeWorld(100, 100, {MakeAtom(50, 50, 3, 4, 3)});
    world.Advance();
    EXPECT_EQ(world.atoms.GetVelocities(), (CVelocityStatistics{5, 5, 5, 5}));
}

TEST(Iteration, TheStatisticsAreMinimumMaximumTotalAndAverage)
{
    CWorld world = MakeWorld(400, 400,
                             {MakeAtom(50, 50, 3, 4, 3), MakeAtom(150, 50, 0, 1, 3), MakeAtom(250, 50, 6, 8, 3),
                              MakeAtom(350, 50, 2, 0, 3)});
    world.Advance();
    EXPECT_EQ(world.atoms.GetVelocities(), (CVelocityStatistics{1, 10, 18, 4.5F}));
}

// The speed field may be stale; the statistics use the velocity.
TEST(Iteration, TheStatisticsUseTheVelocityComponents)
{
    CAtom atom = MakeAtom(50, 50, 3, 4, 3);
    atom.speed = 77;
    CWorld world = MakeWorld(100, 100, {atom});
    ComputeVelocityStatistics(world.atoms);
    EXPECT_EQ(world.atoms.GetMaxVelocity(), 5.0F);
}

// In single precision 16,777,216 + 1 is 16,777,216: the ones that are added after it are lost.
TEST(Iteration, TheTotalIsAddedUpInArrayOrderInSinglePrecision)
{
    CWorld world({100, 100});
    world.SetAtoms({MakeAtom(0, 0, 16'777'216, 0, 1), MakeAtom(0, 0, 1, 0, 1), MakeAtom(0, 0, 1, 0, 1)});
    ComputeVelocityStatistics(world.atoms);
    EXPECT_EQ(world.atoms.GetTotVelocity(), 16'777'216.0F);
    world.SetAtoms({MakeAtom(0, 0, 1, 0, 1), MakeAtom(0, 0, 1, 0, 1), MakeAtom(0, 0, 16'777'216, 0, 1)});
    ComputeVelocityStatistics(world.atoms);
    EXPECT_EQ(world.atoms.GetTotVelocity(), 16'777'218.0F);
}

TEST(Iteration, ANanVelocityAfterTheFirstAtomLeavesMinimumAndMaximumAlone)
{
    CWorld world({100, 100});
    world.SetAtoms({MakeAtom(0, 0, 1, 0, 1), MakeAtom(0, 0, std::nanf(""), 0, 1), MakeAtom(0, 0, 3, 0, 1)});
    ComputeVelocityStatistics(world.atoms);
    EXPECT_EQ(world.atoms.GetMinVelocity(), 1.0F);
    EXPECT_EQ(world.atoms.GetMaxVelocity(), 3.0F);
    EXPECT_TRUE(std::isnan(world.atoms.GetTotVelocity()));
}

TEST(Iteration, AnEmptyWorldHasNoCollisionsAndNoVelocities)
{
    CWorld world({100, 100});
    EXPECT_EQ(world.Advance(), 0U);
    EXPECT_EQ(world.atoms.GetVelocities(), CVelocityStatistics{});
}

// A position that overflows an integer or is NaN must neither index outside the grid nor affect other atoms.
TEST(Iteration, NonFinitePositionsDoNotAffectOtherAtoms)
{
    const float infinity = std::numeric_limits<float>::infinity();
    CWorld world = MakeWorld(500, 500,
                             {MakeAtom(std::nanf(""), 50, 0, 0, 3), MakeAtom(infinity, infinity, 0, 0, 3),
                              MakeAtom(-infinity, 1e30F, 0, 0, 3), MakeAtom(250, 250, 0, 0, 3),
                              MakeAtom(255, 250, 0, 0, 3), MakeAtom(450, 450, 1e30F, -1e30F, 3)});
    for (int iteration = 0; iteration < 3; ++iteration)
    {
        EXPECT_EQ(world.Advance(), 1U) << "only the two atoms at rest touch";
    }
    EXPECT_EQ(world.atoms[3].x, 249.5F);
}

// 10,000 atoms in the far corner of the largest world have separations that stall within a second.
TEST(Iteration, ALargeWorldDoesNotStallInItsFarCorner)
{
    const CScene scene = {"far corner", {9999, 9999}, 10'000, 3, 5, 1, std::nullopt};
    CWorld world(scene);
    // All atoms go to the corner where the spacing of floats is about the tolerance.
    for (std::int32_t i = 0; i < world.atoms.GetCount(); ++i)
    {
        world.atoms[i].x = 9000 + world.atoms[i].x / 12;
        world.atoms[i].y = 9000 + world.atoms[i].y / 12;
    }
    CReferenceWorld reference(scene.world, scene.seed);
    reference.Populate(scene.atoms, scene.minRadius, scene.maxRadius, scene.start);
    std::copy(world.GetAtoms().begin(), world.GetAtoms().end(), reference.GetAtoms().begin());
    for (int iteration = 0; iteration < 100; ++iteration)
    {
        ASSERT_EQ(world.Advance(), reference.Advance()) << "iteration " << iteration;
    }
    EXPECT_TRUE(IsSameWorld(world, reference));
}

TEST(Iteration, TheSteadyStateAllocatesNothing)
{
    for (const CScene& scene : {c_SceneDefault, c_SceneFilled, c_SceneBurst})
    {
        CWorld world(scene);
        for (int iteration = 0; iteration < 100; ++iteration)
        {
            world.Advance();
        }
        const CAllocationWatch watch;
        for (int iteration = 0; iteration < 100; ++iteration)
        {
            world.Advance();
        }
        EXPECT_EQ(watch.GetCount(), 0U) << scene.name;
    }
}

} // namespace
