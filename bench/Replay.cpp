#include "bench/Replay.h"

#include "bench/CBenchmarkWorld.h"
#include "bench/CReplay.h"
#include "bench/Measurement.h"
#include "bench/ReplayPicture.h"
#include "simulation/CDrawAtOnce.h"
#include "simulation/IterationSteps.h"
#include "simulation/SimulationKernels.h"
#include "simulation/SpeedStatistics.h"
#include "simulation/WavefrontRule.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <memory>
#include <numeric>
#include <vector>

namespace
{

constexpr std::array c_ThreadCounts = {1, 2, 4, 8, 16};
constexpr double c_dSlow = 0.6;  // of the speed of a fast thread
constexpr int c_iIterations = 5; // of which the median counts, for each cell

// Milliseconds of the parts of an iteration on one thread.
struct CParts
{
    double enter;
    double statistics;
    std::vector<double> cells;
};

CParts MeasureOnce(CBenchmarkWorld& world, CCellScratch& scratch)
{
    CParts parts{};
    const CSimulationKernels& kernels = GetSimulationKernels();
    CDrawAtOnce turn(world.random);
    parts.enter =
        MeasureMilliseconds(1, [&] { MoveAndEnter(StartIteration(world.atoms, world.grid, world.size, kernels, 1)); });
    for (int cell = 0; cell < world.grid.GetCellCount(); ++cell)
    {
        const auto collide = [&] {
            kernels.pCollideCell(GetTestedAtoms(world.grid, cell), GetTestedAtoms(world.grid, cell + 1), scratch, turn);
        };
        parts.cells.push_back(MeasureMilliseconds(1, collide));
    }
    parts.statistics = MeasureMilliseconds(1, [&] { ComputeVelocityStatistics(world.atoms); });
    return parts;
}

CParts MeasureParts(CBenchmarkWorld& world)
{
    world.Settle();
    const auto pScratch = std::make_unique<CCellScratch>();
    std::vector<CParts> all;
    for (int iteration = 0; iteration < c_iIterations; ++iteration)
    {
        all.push_back(MeasureOnce(world, *pScratch));
    }
    const auto getMedian = [&all](auto getTime) {
        std::vector<double> times;
        for (const CParts& parts : all)
        {
            times.push_back(getTime(parts));
        }
        return GetMedian(times);
    };
    CParts medians{getMedian([](const CParts& parts) { return parts.enter; }),
                   getMedian([](const CParts& parts) { return parts.statistics; }),
                   {}};
    for (std::size_t uCell = 0; uCell < all.front().cells.size(); ++uCell)
    {
        medians.cells.push_back(getMedian([uCell](const CParts& parts) { return parts.cells[uCell]; }));
    }
    return medians;
}

// Milliseconds of an iteration.
struct CReplayed
{
    double collisions;
    double other;

    double Get() const { return collisions + other; }
};

// The other steps are divided among the threads by their speeds.
CReplayed ReplayIteration(const CParts& parts, const CWavefrontRule& rule, const std::vector<double>& speeds)
{
    return {CReplay(parts.cells, rule, speeds).Run(),
            (parts.enter + parts.statistics) / std::accumulate(speeds.begin(), speeds.end(), 0.0)};
}

} // namespace

bool PrintReplay(const char* sPicture)
{
    CBenchmarkWorld world(c_SceneLargest);
    const CParts parts = MeasureParts(world);
    const CWavefrontRule rule = CWavefrontRule::Get(world.grid.GetGeometry(), c_SceneLargest.maxRadius);
    std::printf("%s, %s, measured on one thread and replayed; at the right the second half of the threads slower\n",
                c_SceneLargest.name, GetSimulationKernels().name);
    std::printf("%8s %12s %12s %12s %8s %14s %8s\n", "threads", "collide, ms", "other, ms", "together", "gain",
                "half at 0.6", "gain");
    std::vector<CReplayRow> rows;
    for (const int threads : c_ThreadCounts)
    {
        std::vector<double> speeds(static_cast<std::size_t>(threads), 1.0);
        const CReplayed equal = ReplayIteration(parts, rule, speeds);
        std::fill_n(speeds.rbegin(), threads / 2, c_dSlow);
        const CReplayed unequal = ReplayIteration(parts, rule, speeds);
        rows.push_back({threads, equal.Get()});
        const double one = rows.front().milliseconds;
        std::printf("%8d %12.2f %12.2f %12.2f %8.2f %14.2f %8.2f\n", threads, equal.collisions, equal.other,
                    equal.Get(), one / equal.Get(), unequal.Get(), one / unequal.Get());
    }
    return sPicture == nullptr || WriteReplayPicture(rows, sPicture);
}
