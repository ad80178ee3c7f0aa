#include "bench/BenchmarkScene.h"
#include "bench/CBenchmarkWorld.h"
#include "simulation/HandleAtomCollision.h"
#include "simulation/SpeedStatistics.h"
#include "tests/reference/CReferenceWorld.h"

#include <cstdint>
#include <utility>
#include <vector>

namespace
{

void Iteration(benchmark::State& state)
{
    const CScene& scene = GetScene(state);
    CBenchmarkWorld world(scene);
    world.Settle();
    for ([[maybe_unused]] auto _ : state)
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
    for (int iteration = 0; iteration < CBenchmarkWorld::c_iSettlingIterations; ++iteration)
    {
        world.Advance();
    }
    for ([[maybe_unused]] auto _ : state)
    {
        benchmark::DoNotOptimize(world.Advance());
    }
    CountAtoms(state, scene);
}

void Enter(benchmark::State& state)
{
    const CScene& scene = GetScene(state);
    CBenchmarkWorld world(scene);
    for ([[maybe_unused]] auto _ : state)
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
    for ([[maybe_unused]] auto _ : state)
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
    for ([[maybe_unused]] auto _ : state)
    {
        Populate(world.atoms, world.grid, scene.world, scene.atoms, scene.minRadius, scene.maxRadius, nullptr,
                 world.random);
    }
    CountAtoms(state, scene);
}

using CPair = std::pair<CAtom, CAtom>;

constexpr float c_fMiddle = 500;
constexpr float c_fDistance = 7;
constexpr std::uint8_t c_uRadius = 4;

// Two moving atoms that touch.
CPair MakePair()
{
    CAtom a;
    a.radius = c_uRadius;
    a.vx = 1;
    a.speed = 1;
    CAtom b = a;
    b.vy = 1;
    return {a, b};
}

// Moves a pair back to an overlap of one unit. The velocities stay, so each response depends on the one before.
void Overlap(CPair& pair)
{
    pair.first.x = pair.second.x = c_fMiddle;
    pair.first.y = pair.second.y = c_fMiddle;
    pair.second.x += c_fDistance;
}

// One pair repeatedly: the latency of a response.
void Response(benchmark::State& state)
{
    CRandom random(1);
    CPair pair = MakePair();
    for ([[maybe_unused]] auto _ : state)
    {
        Overlap(pair);
        HandleAtomCollision(pair.first, pair.second, random);
        benchmark::DoNotOptimize(pair);
    }
}

// Many independent pairs: the throughput of responses that overlap in the processor.
void ResponsesOfManyPairs(benchmark::State& state)
{
    constexpr int c_iPairs = 256;
    CRandom random(1);
    std::vector<CPair> pairs(c_iPairs, MakePair());
    for ([[maybe_unused]] auto _ : state)
    {
        for (CPair& pair : pairs)
        {
            Overlap(pair);
            HandleAtomCollision(pair.first, pair.second, random);
        }
        benchmark::DoNotOptimize(pairs.data());
    }
    ShowTimePer(state, "per_response", c_iPairs);
}

BENCHMARK(Response);
BENCHMARK(ResponsesOfManyPairs);
BENCHMARK(Iteration)->DenseRange(0, c_iSceneCount - 1)->Unit(benchmark::kMillisecond);
BENCHMARK(PlainIteration)->DenseRange(0, c_iSceneCount - 1)->Unit(benchmark::kMillisecond);
BENCHMARK(Enter)->DenseRange(0, c_iSceneCount - 1)->Unit(benchmark::kMillisecond);
BENCHMARK(Statistics)->DenseRange(0, c_iSceneCount - 1)->Unit(benchmark::kMillisecond);
BENCHMARK(Population)->DenseRange(0, c_iSceneCount - 1)->Unit(benchmark::kMillisecond);

} // namespace
