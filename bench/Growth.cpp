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
constexpr int c_iTurns = 9;
constexpr double c_dMillisecondsPerTurn = 100;
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

// Milliseconds per iteration: the median of several turns.
double MeasureIteration(CBenchmarkWorld& world)
{
    const auto advance = [&world] { world.Advance(); };
    world.Settle();
    const double first = MeasureMilliseconds(1, advance);
    const int iterations = std::max(1, static_cast<int>(c_dMillisecondsPerTurn / first));
    std::vector<double> times(c_iTurns);
    for (double& milliseconds : times)
    {
        milliseconds = MeasureMilliseconds(iterations, advance);
    }
    return GetMedian(times);
}

// Collisions per iteration in percent of the atoms, averaged over some iterations.
double MeasureCollisionPercent(CBenchmarkWorld& world)
{
    constexpr int c_iIterations = 10;
    double collisions = 0;
    for (int iteration = 0; iteration < c_iIterations; ++iteration)
    {
        collisions += world.Advance();
    }
    return c_dPercent * collisions / c_iIterations / world.atoms.GetCount();
}

void PrintRow(std::int32_t count, int length)
{
    const CScene scene = {"", {length, length}, count, 3, 5, 1, std::nullopt};
    const std::size_t uBefore = GetAllocatedBytes();
    CBenchmarkWorld world(scene);
    const double milliseconds = MeasureIteration(world);
    const auto bytes = static_cast<double>(GetAllocatedBytes() - uBefore);
    CBenchmarkWorld shared(scene, GetThreadCount());
    const double allMilliseconds = MeasureIteration(shared);
    const std::string sWorld = std::to_string(length) + " x " + std::to_string(length);
    std::printf("%9d  %-13s %11.2f %11.2f %12.1f %12.1f %12.1f %11.1f %11.2f\n", count, sWorld.c_str(),
                static_cast<double>(count) / world.grid.GetCellCount(), MeasureCollisionPercent(world),
                milliseconds * c_dMicrosecondsPerMillisecond, milliseconds * c_dNanosecondsPerMillisecond / count,
                allMilliseconds * c_dNanosecondsPerMillisecond / count, bytes / count, bytes / (1 << 20));
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
