#include "bench/Ratios.h"

#include "bench/CBenchmarkWorld.h"
#include "bench/MachineGain.h"
#include "bench/Measurement.h"
#include "simulation/CHelperPool.h"
#include "simulation/ThreadSetting.h"
#include "tests/reference/CReferenceWorld.h"
#include "tests/reference/Scenes.h"
#include "tests/reference/WorldHash.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <limits>

namespace
{

constexpr int c_iTurns = 15;
constexpr int c_iFirstIterations = 30;
constexpr double c_dMillisecondsPerTurn = 40; // long enough to measure, short enough to alternate

std::uint64_t HashWorld(const CBenchmarkWorld& world)
{
    return HashAtoms({world.atoms.GetAtoms(), static_cast<std::size_t>(world.atoms.GetCount())});
}

// Milliseconds per iteration in the fastest turn, and the largest gain of the machine. Other programs on the
// processors, also those of other virtual machines, only make a turn slower; so the fastest one tells most about the
// program.
struct CBest
{
    double plain = std::numeric_limits<double>::max();
    double one = plain;
    double all = plain;
    double machineGain = 0;
};

bool PrintRatio(const CScene& scene, CHelperPool& helpers)
{
    CReferenceWorld plain(scene.world, scene.seed);
    plain.Populate(scene.atoms, scene.minRadius, scene.maxRadius, scene.start);
    CBenchmarkWorld one(scene, 1);
    CBenchmarkWorld all(scene, GetThreadCount());
    const auto advancePlain = [&] { plain.Advance(); };
    const auto advanceOne = [&] { one.Advance(); };
    const auto advanceAll = [&] { all.Advance(); };

    // The first iterations remove the overlaps of the start and find the fastest kernels.
    for (int iteration = 0; iteration < c_iFirstIterations; ++iteration)
    {
        advancePlain();
        advanceOne();
        advanceAll();
    }
    // This one decides the iterations per turn.
    const double first = MeasureMilliseconds(1, advancePlain);
    advanceOne();
    advanceAll();
    const int iterations = std::max(1, static_cast<int>(c_dMillisecondsPerTurn / first));
    CBest best;
    for (int turn = 0; turn < c_iTurns; ++turn)
    {
        best.plain = std::min(best.plain, MeasureMilliseconds(iterations, advancePlain));
        best.one = std::min(best.one, MeasureMilliseconds(iterations, advanceOne));
        best.all = std::min(best.all, MeasureMilliseconds(iterations, advanceAll));
        best.machineGain = std::max(best.machineGain, MeasureMachineGain(helpers));
    }

    const std::uint64_t uHash = HashAtoms(plain.GetAtoms());
    const bool bEqual = HashWorld(one) == uHash && HashWorld(all) == uHash;
    std::printf("%-28s %10.4f ms %10.4f ms %10.4f ms %7.2f %7.2f %8.2f   %-8s  %s\n", scene.name, best.plain, best.one,
                best.all, best.plain / best.one, best.one / best.all, best.machineGain, one.runner.GetWay().sKernels,
                bEqual ? "equal" : "DIFFERENT");
    static_cast<void>(std::fflush(stdout));
    return bEqual;
}

} // namespace

bool PrintRatios()
{
    std::printf("threads: %d\n", GetThreadCount());
    std::printf("%-28s %13s %13s %13s %7s %7s %8s   %-8s  %s\n", "scene", "plain", "one thread", "all threads", "gain",
                "gain", "machine", "fastest", "hashes");
    CHelperPool helpers(GetThreadCount() - 1);
    bool bEqual = true;
    for (const CScene& scene : c_BenchmarkScenes)
    {
        bEqual = PrintRatio(scene, helpers) && bEqual;
    }
    return bEqual;
}
