#pragma once

#include "classes/core/CPoint.h"
#include "classes/core/CSize.h"

#include <array>
#include <cstdint>
#include <optional>

// A named start of a world. Tests and benchmarks share the scenes, so that a slow case can become a test and a failing
// one a benchmark.
struct CScene
{
    const char* name;
    CSize<int> world;
    std::int32_t atoms;
    std::uint8_t minRadius;
    std::uint8_t maxRadius;
    std::uint64_t seed;
    std::optional<CPoint<int>> start; // all atoms at this point
};

// The scene of the program's default settings.
inline constexpr CScene c_SceneDefault = {"256 in 512 x 512", {512, 512}, 256, 3, 5, 1, std::nullopt};

// The density of a million atoms in the largest world, small enough for the cache.
inline constexpr CScene c_SceneFilled = {"10,000 in 1,000 x 1,000", {1000, 1000}, 10'000, 3, 5, 2, std::nullopt};

// More atoms than fit without overlap: every atom always touches several others.
inline constexpr CScene c_SceneDense = {"20,000 in 512 x 512", {512, 512}, 20'000, 3, 5, 3, std::nullopt};

// Mostly empty cells.
inline constexpr CScene c_SceneSparse = {"100,000 in 9,999 x 9,999", {9999, 9999}, 100'000, 3, 5, 4, std::nullopt};

// The most atoms in the largest world.
inline constexpr CScene c_SceneLargest = {"1,000,000 in 9,999 x 9,999", {9999, 9999}, 1'000'000, 3, 5, 5, std::nullopt};

// A click into the world: all atoms start at one point, in one crowded cell.
inline constexpr CScene c_SceneBurst = {"3,000 from one point", {700, 500}, 3'000, 1, 7, 6, CPoint<int>{333, 222}};

inline constexpr std::array c_BenchmarkScenes = {c_SceneDefault, c_SceneFilled, c_SceneDense, c_SceneSparse,
                                                 c_SceneLargest};
