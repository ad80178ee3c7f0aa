#include "bench/BenchmarkScene.h"
#include "bench/CBenchmarkWorld.h"
#include "classes/core/CCpuCapabilities.h"
#include "simulation/IterationSteps.h"
#include "simulation/SimulationKernels.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

// The stages that exist once per instruction set, with every set that the processor has. The second argument is the
// number of the set, slowest first. KINETARIUM_CPU has no effect here.

namespace
{

std::span<const CSimulationKernels> GetAllKernels()
{
    return GetKernels(CCpuCapabilities(false));
}

const CSimulationKernels& GetKernelSet(benchmark::State& state, const CScene& scene)
{
    const CSimulationKernels& kernels = GetAllKernels()[static_cast<std::size_t>(state.range(1))];
    state.SetLabel(std::string(scene.name) + ", " + kernels.name);
    return kernels;
}

void IterationBySet(benchmark::State& state)
{
    const CScene& scene = GetScene(state);
    const CSimulationKernels& kernels = GetKernelSet(state, scene);
    CBenchmarkWorld world(scene);
    world.Settle();
    for ([[maybe_unused]] auto _ : state)
    {
        benchmark::DoNotOptimize(AdvanceOneIteration(world.atoms, world.grid, world.size, world.random, kernels));
    }
    CountAtoms(state, scene);
    ShowTimePer(state, "per_atom", scene.atoms);
}

void MoveAndEnter(benchmark::State& state)
{
    const CScene& scene = GetScene(state);
    const CSimulationKernels& kernels = GetKernelSet(state, scene);
    CBenchmarkWorld world(scene);
    for ([[maybe_unused]] auto _ : state)
    {
        MoveAndEnter(StartIteration(world.atoms, world.grid, world.size, kernels, 1));
        benchmark::DoNotOptimize(world.grid.GetCellAtoms(0).data());
    }
    CountAtoms(state, scene);
    ShowTimePer(state, "per_atom", scene.atoms);
}

std::uint32_t CollideAll(CBenchmarkWorld& world, const CSimulationKernels& kernels)
{
    return CollideCells(world.grid, world.atoms.GetCount(), world.random, kernels);
}

void EnterAll(CBenchmarkWorld& world)
{
    world.grid.Clear();
    for (std::int32_t i = 0; i < world.atoms.GetCount(); ++i)
    {
        world.grid.Insert(world.atoms[i]);
    }
}

// Scales all positions and the size of the world.
void Stretch(CBenchmarkWorld& world, float fFactor)
{
    for (std::int32_t i = 0; i < world.atoms.GetCount(); ++i)
    {
        world.atoms[i].x *= fFactor;
        world.atoms[i].y *= fFactor;
    }
    world.size.cx = static_cast<int>(static_cast<float>(world.size.cx) * fFactor) + 1;
    world.size.cy = static_cast<int>(static_cast<float>(world.size.cy) * fFactor) + 1;
    world.grid.Resize(world.size);
}

// Pushes the atoms apart without moving them otherwise, until no two touch; false if they have no room. A push ends in
// contact, which counts as touching, so each pass also stretches the world by a thousandth: more than the tolerance of
// the push for any sum of two radii.
bool PushApart(CBenchmarkWorld& world, const CSimulationKernels& kernels)
{
    constexpr int c_iMostPasses = 60;
    constexpr float c_fStretch = 1.001F;
    for (int pass = 0; pass < c_iMostPasses; ++pass)
    {
        EnterAll(world);
        if (CollideAll(world, kernels) == 0)
        {
            return true;
        }
        Stretch(world, c_fStretch);
    }
    return false;
}

double CountPairs(CBenchmarkWorld& world)
{
    double pairs = 0;
    for (int cell = 0; cell < world.grid.GetCellCount(); ++cell)
    {
        const double count = GetTestedAtoms(world.grid, cell).count;
        pairs += count * (count - 1) / 2;
    }
    return pairs;
}

// The pair tests alone, in a world in which no two atoms touch. A pair is two atoms of one cell, as the plain form
// tests them.
void PairTests(benchmark::State& state)
{
    const CScene& scene = GetScene(state);
    const CSimulationKernels& kernels = GetKernelSet(state, scene);
    CBenchmarkWorld world(scene);
    if (!PushApart(world, kernels))
    {
        state.SkipWithError("its atoms have no room to stop touching");
        return;
    }
    std::uint32_t uCollisions = 0;
    for ([[maybe_unused]] auto _ : state)
    {
        uCollisions += CollideAll(world, kernels);
    }
    if (uCollisions != 0)
    {
        state.SkipWithError("two atoms touched");
    }
    const double pairs = CountPairs(world);
    state.counters["pairs"] = pairs;
    ShowTimePer(state, "per_pair", pairs);
    ShowTimePer(state, "per_atom", scene.atoms);
}

template<class IsWanted>
void AddScenesAndSets(benchmark::internal::Benchmark* pBenchmark, IsWanted isWanted)
{
    for (int scene = 0; scene < c_iSceneCount; ++scene)
    {
        for (int set = 0; set < static_cast<int>(GetAllKernels().size()); ++set)
        {
            if (isWanted(c_BenchmarkScenes.at(static_cast<std::size_t>(scene))))
            {
                pBenchmark->Args({scene, set});
            }
        }
    }
    pBenchmark->Unit(benchmark::kMillisecond);
}

void AddAll(benchmark::internal::Benchmark* pBenchmark)
{
    AddScenesAndSets(pBenchmark, [](const CScene&) { return true; });
}

// All scenes except the dense one, whose atoms have no room.
void AddThoseWithRoom(benchmark::internal::Benchmark* pBenchmark)
{
    AddScenesAndSets(pBenchmark, [](const CScene& scene) { return scene.seed != c_SceneDense.seed; });
}

BENCHMARK(IterationBySet)->Apply(AddAll);
BENCHMARK(MoveAndEnter)->Apply(AddAll);
BENCHMARK(PairTests)->Apply(AddThoseWithRoom);

} // namespace
