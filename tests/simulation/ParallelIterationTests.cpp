#include "simulation/CIterationRunner.h"
#include "tests/simulation/CAllocationWatch.h"
#include "tests/simulation/CWorld.h"

#include <stdexcept>

namespace
{

// The baseline kernels, except that a cell fails if it has an atom of this radius.
constexpr std::uint8_t c_uFailingRadius = 32;

std::uint32_t CollideOrFail(const CCellList& atoms, const CCellList& next, CCellScratch& scratch, IDrawTurn& turn)
{
    for (int i = 0; i < atoms.count; ++i)
    {
        if (atoms.ppAtoms[i]->radius == c_uFailingRadius)
        {
            throw std::domain_error("a cell");
        }
    }
    return GetAllKernels().front().pCollideCell(atoms, next, scratch, turn);
}

CSimulationKernels MakeFailingKernels()
{
    CSimulationKernels kernels = GetAllKernels().front();
    kernels.pCollideCell = CollideOrFail;
    return kernels;
}

TEST(ParallelIteration, AnExceptionInAnyCellEndsTheIterationOnAllThreads)
{
    const CSimulationKernels kernels = MakeFailingKernels();
    for (const int threads : c_ThreadCounts)
    {
        CWorld world(c_SceneFilled);
        world.pKernels = &kernels;
        world.UseThreads(threads);
        world.Advance();
        for (const std::int32_t failing : {0, 777, 5000, 9999})
        {
            const std::uint8_t uBefore = world.atoms[failing].radius;
            world.atoms[failing].radius = c_uFailingRadius;
            EXPECT_THROW(world.Advance(), std::domain_error) << threads << " threads, atom " << failing;
            world.atoms[failing].radius = uBefore;
            EXPECT_NO_THROW(world.Advance());
        }
    }
}

TEST(ParallelIteration, MemoryShortageIsThrownInTheCallersThread)
{
    CWorld world(c_SceneFilled);
    world.UseThreads(3);
    const CAllocationLimit limit(1000);
    EXPECT_THROW(world.Advance(), std::bad_alloc);
}

TEST(ParallelIteration, TheSteadyStateAllocatesNothing)
{
    CWorld world(c_SceneFilled);
    world.UseThreads(3);
    for (int iteration = 0; iteration < 20; ++iteration)
    {
        world.Advance();
    }
    const CAllocationWatch watch;
    for (int iteration = 0; iteration < 20; ++iteration)
    {
        world.Advance();
    }
    EXPECT_EQ(watch.GetCount(), 0U);
}

// A loaded state may have atoms that reach across a whole cell.
TEST(ParallelIteration, HugeAtomsGiveTheSameBitsWithEveryNumberOfThreads)
{
    for (const int threads : c_ThreadCounts)
    {
        CWorld one(c_SceneBurst);
        for (std::int32_t i = 0; i < one.atoms.GetCount(); i += 100)
        {
            one.atoms[i].radius = 200;
        }
        CWorld several(c_SceneBurst);
        several.SetAtoms({one.GetAtoms().begin(), one.GetAtoms().end()});
        several.UseThreads(threads);
        for (int iteration = 0; iteration < 20; ++iteration)
        {
            ASSERT_EQ(several.Advance(), one.Advance());
        }
        EXPECT_EQ(HashAtoms(several.GetAtoms()), HashAtoms(one.GetAtoms())) << threads << " threads";
    }
}

int CountThreadsFor(const CScene& scene, int mostThreads)
{
    CWorld world(scene);
    CIterationRunner runner(mostThreads);
    runner.Advance(world.atoms, world.grid, world.size, world.random);
    return runner.GetThreadCount();
}

TEST(IterationRunner, SmallWorldsHaveNoHelpers)
{
    EXPECT_EQ(CountThreadsFor(c_SceneDefault, 8), 1);
    EXPECT_EQ(CountThreadsFor({"", {9999, 9999}, 1000, 3, 5, 1, {}}, 8), 1);
}

TEST(IterationRunner, LargeWorldsHaveAsManyThreadsAsAllowedAndUseful)
{
    EXPECT_EQ(CountThreadsFor(c_SceneFilled, 1), 1);
    EXPECT_EQ(CountThreadsFor(c_SceneFilled, 3), 3);
    EXPECT_EQ(CountThreadsFor(c_SceneFilled, 8), 5); // ten columns
    EXPECT_EQ(CountThreadsFor({"", {99, 9999}, 10'000, 3, 5, 1, {}}, 8), 1);
}

TEST(IterationRunner, EveryIterationGivesTheBitsOfOneThread)
{
    CWorld one(c_SceneFilled);
    CWorld several(c_SceneFilled);
    CIterationRunner runner(4);
    for (int iteration = 0; iteration < 30; ++iteration)
    {
        ASSERT_EQ(runner.Advance(several.atoms, several.grid, several.size, several.random), one.Advance());
        ASSERT_EQ(HashAtoms(several.GetAtoms()), HashAtoms(one.GetAtoms()));
        ASSERT_EQ(several.atoms.GetVelocities(), one.atoms.GetVelocities());
    }
}

} // namespace
