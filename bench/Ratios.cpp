#include "bench/Ratios.h"

#include "bench/CBenchmarkWorld.h"
#include "bench/Measurement.h"
#include "simulation/SimulationKernels.h"
#include "tests/reference/CReferenceWorld.h"
#include "tests/reference/Scenes.h"
#include "tests/reference/WorldHash.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <span>
#include <vector>

namespace
{

constexpr int c_iTurns = 9;
constexpr double c_dMillisecondsPerTurn = 40; // long enough to measure, short enough to alternate

bool PrintRatio(const CScene& scene)
{
    CReferenceWorld plain(scene.world, scene.seed);
    plain.Populate(scene.atoms, scene.minRadius, scene.maxRadius, scene.start);
    CBenchmarkWorld fast(scene);
    const auto advancePlain = [&] { plain.Advance(); };
    const auto advanceFast = [&] { fast.Advance(); };

    // The first iteration also warms up the caches; its time decides the iterations per turn.
    const double first = MeasureMilliseconds(1, advancePlain);
    advanceFast();
    const int iterations = std::max(1, static_cast<int>(c_dMillisecondsPerTurn / first));
    std::vector<double> plainTimes;
    std::vector<double> fastTimes;
    for (int turn = 0; turn < c_iTurns; ++turn)
    {
        plainTimes.push_back(MeasureMilliseconds(iterations, advancePlain));
        fastTimes.push_back(MeasureMilliseconds(iterations, advanceFast));
    }

    const std::span<const CAtom> fastAtoms(fast.atoms.GetAtoms(), static_cast<std::size_t>(fast.atoms.GetCount()));
    const bool bEqual = HashAtoms(plain.GetAtoms()) == HashAtoms(fastAtoms);
    const double plainMs = GetMedian(plainTimes);
    const double fastMs = GetMedian(fastTimes);
    std::printf("%-28s %10.4f ms %10.4f ms %7.2f   %s\n", scene.name, plainMs, fastMs, plainMs / fastMs,
                bEqual ? "equal" : "DIFFERENT");
    static_cast<void>(std::fflush(stdout));
    return bEqual;
}

} // namespace

bool PrintRatios()
{
    std::printf("instruction set: %s\n", GetSimulationKernels().name);
    std::printf("%-28s %13s %13s %7s   %s\n", "scene", "plain", "program", "ratio", "hashes");
    bool bEqual = true;
    for (const CScene& scene : c_BenchmarkScenes)
    {
        bEqual = PrintRatio(scene) && bEqual;
    }
    return bEqual;
}
