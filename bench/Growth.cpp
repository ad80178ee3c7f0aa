#include "bench/Growth.h"

#include "bench/CBenchmarkWorld.h"
#include "bench/Measurement.h"
#include "classes/core/Percent.h"
#include "simulation/SimulationConstants.h"
#include "simulation/ThreadSetting.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace
{

constexpr std::array c_Counts = {1'000, 3'000, 10'000, 30'000, 100'000, 300'000, 1'000'000};
constexpr double c_dAreaPerAtom = 100; // square units; atoms of radius 3 to 5 fill half of it
constexpr int c_iFirstIterations = 30; // remove the overlaps of the start and find the fastest way
constexpr int c_iIterationsPerTurn = 30;
constexpr int c_iFewestTurns = 3;
constexpr std::int32_t c_iAtomsOfAllTurns = 500'000; // so that small worlds are measured for long enough
constexpr double c_dNanosecondsPerMillisecond = 1e6;
constexpr double c_dMicrosecondsPerMillisecond = 1e3;

// Bytes allocated at present; 0 if the C library cannot tell.
std::size_t GetAllocatedBytes()
{
#ifdef __GLIBC__
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
#else
    return 0;
#endif
}

struct CMeasured
{
    double milliseconds;     // per iteration
    double collisionPercent; // collisions per iteration in percent of the atoms
    double bytes;            // of the world
};

// Measures some iterations of a new world, and the same ones for any number of atoms: in its first thousand iterations
// a world becomes faster, because fewer and fewer atoms are pushed far.
CMeasured MeasureTurn(const CScene& scene, int threads)
{
    const std::size_t uBefore = GetAllocatedBytes();
    CBenchmarkWorld world(scene, threads);
    for (int iteration = 0; iteration < c_iFirstIterations; ++iteration)
    {
        world.Advance();
    }
    std::uint64_t uCollisions = 0;
    const double milliseconds = MeasureMilliseconds(c_iIterationsPerTurn, [&] { uCollisions += world.Advance(); });
    const auto collisions = static_cast<double>(uCollisions);
    return {milliseconds, c_dPercent * collisions / c_iIterationsPerTurn / scene.atoms,
            static_cast<double>(GetAllocatedBytes() - uBefore)};
}

// The median of several turns.
CMeasured Measure(const CScene& scene, int threads)
{
    std::vector<double> times;
    CMeasured measured{};
    const int turns = std::max(c_iFewestTurns, c_iAtomsOfAllTurns / scene.atoms);
    for (int turn = 0; turn < turns; ++turn)
    {
        measured = MeasureTurn(scene, threads);
        times.push_back(measured.milliseconds);
    }
    measured.milliseconds = GetMedian(times);
    return measured;
}

void PrintRow(std::int32_t count, int length)
{
    const CScene scene = {"", {length, length}, count, 3, 5, 1, std::nullopt};
    const CMeasured one = Measure(scene, 1);
    const CMeasured all = Measure(scene, GetThreadCount());
    const double cells = static_cast<double>(CGridGeometry::ForWorld(scene.world).GetCellCount());
    const std::string sWorld = std::to_string(length) + " x " + std::to_string(length);
    std::printf("%9d  %-13s %11.2f %11.2f %12.1f %12.1f %12.1f %11.1f %11.2f\n", count, sWorld.c_str(), count / cells,
                one.collisionPercent, one.milliseconds * c_dMicrosecondsPerMillisecond,
                one.milliseconds * c_dNanosecondsPerMillisecond / count,
                all.milliseconds * c_dNanosecondsPerMillisecond / count, one.bytes / count, one.bytes / (1 << 20));
    static_cast<void>(std::fflush(stdout));
}

void PrintHead(const char* sTitle)
{
    std::printf("\n%s\n%9s  %-13s %11s %11s %12s %12s %12s %11s %11s\n", sTitle, "atoms", "world", "atoms/cell",
                "collided %", "us/iteration", "ns/atom", "all threads", "bytes/atom", "MiB");
}

} // namespace

void PrintGrowth()
{
    std::printf("threads: one, and all %d\n", GetThreadCount());
    PrintHead("the same density: 100 square units per atom");
    for (const std::int32_t count : c_Counts)
    {
        const int length = static_cast<int>(std::lround(std::sqrt(c_dAreaPerAtom * count)));
        PrintRow(count, std::min(length, c_iMaxWorldLength));
    }
    PrintHead("the same world");
    for (const std::int32_t count : c_Counts)
    {
        PrintRow(count, c_iMaxWorldLength);
    }
}
