#pragma once

#include "tests/reference/Scenes.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>

// Helpers of the stage benchmarks. Their first argument is the number of a benchmark scene.

constexpr int c_iSceneCount = static_cast<int>(c_BenchmarkScenes.size());

inline const CScene& GetScene(benchmark::State& state)
{
    const CScene& scene = c_BenchmarkScenes.at(static_cast<std::size_t>(state.range(0)));
    state.SetLabel(scene.name);
    return scene;
}

inline void CountAtoms(benchmark::State& state, const CScene& scene)
{
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * scene.atoms);
}

// Shows the time per item, where each round of the benchmark handles countPerRound items. (The library prints seconds
// with a prefix: 1.5n is 1.5 nanoseconds.)
inline void ShowTimePer(benchmark::State& state, const char* sName, double countPerRound)
{
    state.counters[sName] =
        benchmark::Counter(countPerRound, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
