#include "classes/core/CRandom.h"
#include "simulation/CAtoms.h"
#include "simulation/CCollisionGrid.h"
#include "simulation/HandleAtomCollision.h"
#include "simulation/Iteration.h"
#include "simulation/Population.h"
#include "tests/reference/CReferenceWorld.h"
#include "tests/reference/Scenes.h"

#include <benchmark/benchmark.h>

namespace
{

// A scene in the program's form.
struct CBenchmarkWorld
{
    explicit CBenchmarkWorld(const CScene& scene) : size(scene.world), random(scene.seed)
    {
        Populate(atoms, grid, size, scene.atoms, scene.minRadius, scene.maxRadius, nullptr, random);
    }

    CSize<int> size;
    CRandom random;
    CAtoms atoms;
    CCollisionGrid grid;
};

const CScene& GetScene(benchmark::State& state)
{
    const CScene& scene = c_BenchmarkScenes.at(static_cast<std::size_t>(state.range(0)));
    state.SetLabel(scene.name);
    return scene;
}

void CountAtoms(benchmark::State& state, const CScene& scene)
{
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * scene.atoms);
}

void Iteration(benchmark::State& state)
{
    const CScene& scene = GetScene(state);
    CBenchmarkWorld world(scene);
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(AdvanceOneIteration(world.atoms, world.grid, world.size, world.random));
    }
    CountAtoms(state, scene);
}

void PlainIteration(benchmark::State& state)
{
    const CScene& scene = GetScene(state);
    CReferenceWorld world(scene.world, scene.seed);
    world.Populate(scene.atoms, scene.minRadius, scene.maxRadius, scene.start);
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(world.Advance());
    }
    CountAtoms(state, scene);
}

void Enter(benchmark::State& state)
{
    const CScene& scene = GetScene(state);
    CBenchmarkWorld world(scene);
    for (auto _ : state)
    {
        world.grid.Clear();
        for (std::int32_t i = 0; i < world.atoms.GetCount(); ++i)
        {
            world.grid.Insert(world.atoms[i]);
        }
        benchmark::DoNotOptimize(world.grid.GetCellAtoms(0).data());
    }
    CountAtoms(state, scene);
}

void Statistics(benchmark::State& state)
{
    const CScene& scene = GetScene(state);
    CBenchmarkWorld world(scene);
    for (auto _ : state)
    {
        ComputeVelocityStatistics(world.atoms);
        benchmark::DoNotOptimize(world.atoms.GetAvgVelocity());
    }
    CountAtoms(state, scene);
}

void Population(benchmark::State& state)
{
    const CScene& scene = GetScene(state);
    CBenchmarkWorld world(scene);
    for (auto _ : state)
    {
        Populate(world.atoms, world.grid, scene.world, scene.atoms, scene.minRadius, scene.maxRadius, nullptr,
                 world.random);
    }
    CountAtoms(state, scene);
}

// One pair again and again, each time overlapping by one unit: the time of a response from end to end.
void Response(benchmark::State& state)
{
    CRandom random(1);
    CAtom a;
    a.radius = 4;
    a.vx = 1;
    a.speed = 1;
    CAtom b = a;
    b.vy = 1;
    for (auto _ : state)
    {
        a.x = b.x = 500;
        a.y = b.y = 500;
        b.x += 7;
        HandleAtomCollision(a, b, random);
        benchmark::DoNotOptimize(a);
        benchmark::DoNotOptimize(b);
    }
}

constexpr int c_iSceneCount = static_cast<int>(c_BenchmarkScenes.size());

BENCHMARK(Response);
BENCHMARK(Iteration)->DenseRange(0, c_iSceneCount - 1)->Unit(benchmark::kMillisecond);
BENCHMARK(PlainIteration)->DenseRange(0, c_iSceneCount - 1)->Unit(benchmark::kMillisecond);
BENCHMARK(Enter)->DenseRange(0, c_iSceneCount - 1)->Unit(benchmark::kMillisecond);
BENCHMARK(Statistics)->DenseRange(0, c_iSceneCount - 1)->Unit(benchmark::kMillisecond);
BENCHMARK(Population)->DenseRange(0, c_iSceneCount - 1)->Unit(benchmark::kMillisecond);

} // namespace
