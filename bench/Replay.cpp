#include "bench/Replay.h"

#include "bench/CBenchmarkWorld.h"
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
#include <vector>

namespace
{

constexpr std::array c_ThreadCounts = {1, 2, 4, 8, 16};
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

// When the last cell is done if that many threads take the rows in order and each cell waits as the rule says.
double ReplayCells(const std::vector<double>& times, const CWavefrontRule& rule, int threads)
{
    std::vector<double> free(static_cast<std::size_t>(threads), 0); // when each thread is
    std::vector<double> ends(times.size(), 0);
    for (int row = 0; row < rule.rows; ++row)
    {
        const auto thread = std::min_element(free.begin(), free.end());
        for (int column = 0; column < rule.columns; ++column)
        {
            const auto uCell = static_cast<std::size_t>(row * rule.columns + column);
            const auto uAwaited = static_cast<std::size_t>((row - 1) * rule.columns + rule.GetNeeded(column) - 1);
            const double ready = row == 0 ? 0 : ends[uAwaited];
            *thread = ends[uCell] = std::max(*thread, ready) + times[uCell];
        }
    }
    return *std::max_element(free.begin(), free.end());
}

} // namespace

bool PrintReplay(const char* sPicture)
{
    CBenchmarkWorld world(c_SceneLargest);
    const CParts parts = MeasureParts(world);
    const CWavefrontRule rule = CWavefrontRule::Get(world.grid.GetGeometry(), c_SceneLargest.maxRadius);
    std::printf("%s, %s, measured on one thread and replayed\n", c_SceneLargest.name, GetSimulationKernels().name);
    std::printf("%8s %12s %12s %12s %8s\n", "threads", "collide, ms", "other, ms", "together", "gain");
    std::vector<CReplayRow> rows;
    for (const int threads : c_ThreadCounts)
    {
        const double cells = ReplayCells(parts.cells, rule, threads);
        const double other = (parts.enter + parts.statistics) / threads;
        rows.push_back({threads, cells + other});
        std::printf("%8d %12.2f %12.2f %12.2f %8.2f\n", threads, cells, other, cells + other,
                    rows.front().milliseconds / rows.back().milliseconds);
    }
    return sPicture == nullptr || WriteReplayPicture(rows, sPicture);
}
