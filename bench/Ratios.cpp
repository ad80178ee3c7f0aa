#include "bench/Ratios.h"

#include "classes/core/CRandom.h"
#include "simulation/CAtoms.h"
#include "simulation/CCollisionGrid.h"
#include "simulation/Iteration.h"
#include "simulation/Population.h"
#include "tests/reference/CReferenceWorld.h"
#include "tests/reference/Scenes.h"
#include "tests/reference/WorldHash.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <span>
#include <vector>

namespace
{

constexpr int c_iTurns = 9;
constexpr double c_dMillisecondsPerTurn = 40; // long enough to measure, short enough to take turns

// Milliseconds per iteration over some iterations of advance.
template<class Advance>
double Measure(int iterations, Advance advance)
{
    const auto start = std::chrono::steady_clock::now();
    for (int iteration = 0; iteration < iterations; ++iteration)
    {
        advance();
    }
    const std::chrono::duration<double, std::milli> elapsed = std::chrono::steady_clock::now() - start;
    return elapsed.count() / iterations;
}

double GetMedian(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

bool PrintRatio(const CScene& scene)
{
    CReferenceWorld plain(scene.world, scene.seed);
    plain.Populate(scene.atoms, scene.minRadius, scene.maxRadius, scene.start);
    CRandom random(scene.seed);
    CAtoms atoms;
    CCollisionGrid grid;
    Populate(atoms, grid, scene.world, scene.atoms, scene.minRadius, scene.maxRadius, nullptr, random);
    const auto advancePlain = [&] { plain.Advance(); };
    const auto advanceFast = [&] { AdvanceOneIteration(atoms, grid, scene.world, random); };

    // The first iteration also warms both up; its time says how many make a turn.
    const double first = Measure(1, advancePlain);
    advanceFast();
    const int iterations = std::max(1, static_cast<int>(c_dMillisecondsPerTurn / first));
    std::vector<double> plainTimes;
    std::vector<double> fastTimes;
    for (int turn = 0; turn < c_iTurns; ++turn)
    {
        plainTimes.push_back(Measure(iterations, advancePlain));
        fastTimes.push_back(Measure(iterations, advanceFast));
    }

    const std::span<const CAtom> fastAtoms(atoms.GetAtoms(), static_cast<std::size_t>(atoms.GetCount()));
    const bool bEqual = HashAtoms(plain.GetAtoms()) == HashAtoms(fastAtoms);
    const double plainMs = GetMedian(plainTimes);
    const double fastMs = GetMedian(fastTimes);
    std::printf("%-28s %10.4f ms %10.4f ms %7.2f   %s\n", scene.name, plainMs, fastMs, plainMs / fastMs,
                bEqual ? "equal" : "DIFFERENT");
    std::fflush(stdout);
    return bEqual;
}

} // namespace

bool PrintRatios()
{
    std::printf("%-28s %13s %13s %7s   %s\n", "scene", "plain", "program", "ratio", "hashes");
    bool bEqual = true;
    for (const CScene& scene : c_BenchmarkScenes)
    {
        bEqual = PrintRatio(scene) && bEqual;
    }
    return bEqual;
}
