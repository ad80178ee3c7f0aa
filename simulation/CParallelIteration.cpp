#include "simulation/CParallelIteration.h"

#include "simulation/CAtoms.h"
#include "simulation/CCollisionGrid.h"
#include "simulation/CellRows.h"
#include "simulation/SpeedStatistics.h"
#include "simulation/SpeedSum.h"

#include <algorithm>
#include <atomic>
#include <mutex>
#include <span>

namespace
{

// More chunks than threads let a fast thread do more of them. But each has counts of its own for every cell, so the
// atoms must be many more than the cells.
constexpr std::size_t c_uChunksPerThread = 4;
constexpr std::size_t c_uFewestAtomsPerChunk = 16'384;
constexpr std::size_t c_uFewestAtomsPerCell = 8; // of a chunk

std::size_t CountChunks(std::size_t uThreads, std::size_t uAtoms, std::size_t uCells)
{
    const std::size_t uMany = uThreads * c_uChunksPerThread;
    const bool bLarge = uAtoms >= uMany * std::max(c_uFewestAtomsPerChunk, uCells * c_uFewestAtomsPerCell);
    return bLarge ? uMany : uThreads;
}

// Calls action(chunk) for all chunks of the atoms; each thread takes the next one when it has done its own.
template<class Action>
void ForEachChunk(CHelperPool& helpers, std::size_t uChunks, std::size_t uAtoms, Action action)
{
    std::atomic<std::size_t> uNext = 0;
    const auto takeChunks = [&] {
        for (std::size_t uChunk = uNext++; uChunk < uChunks; uChunk = uNext++)
        {
            action(CChunk::Get(uChunk, uChunks, uAtoms));
        }
    };
    helpers.Run(takeChunks);
}

} // namespace

std::uint32_t CParallelIteration::Advance(CAtoms& atoms, CCollisionGrid& grid, const CSize<int>& world, CRandom& random,
                                          const CSimulationKernels& kernels)
{
    const std::size_t uChunks =
        CountChunks(static_cast<std::size_t>(GetThreadCount()), static_cast<std::size_t>(atoms.GetCount()),
                    static_cast<std::size_t>(grid.GetCellCount()));
    const CIterationWork work = StartIteration(atoms, grid, world, kernels, uChunks);
    EnterAtoms(work, uChunks);
    const std::uint32_t uCollisions = Collide(work, random);
    ComputeStatistics(work, uChunks);
    return uCollisions;
}

void CParallelIteration::EnterAtoms(const CIterationWork& work, std::size_t uChunks)
{
    const auto uAtoms = static_cast<std::size_t>(work.atoms.GetCount());
    ForEachChunk(m_Helpers, uChunks, uAtoms, [&](const CChunk& chunk) { MoveChunk(work, chunk); });
    work.grid.GetLists().MakeRoom();
    ForEachChunk(m_Helpers, uChunks, uAtoms, [&](const CChunk& chunk) { FillChunk(work, chunk); });
    work.grid.MarkFilled();
}

std::uint32_t CParallelIteration::Collide(const CIterationWork& work, CRandom& random)
{
    m_Wavefront.Restart(m_Rule);
    std::atomic<std::uint32_t> uCollisions = 0;
    const auto collideRows = [&] { uCollisions += CollideRows(work.grid, m_Wavefront, random, work.kernels); };
    m_Helpers.Run(collideRows);
    return uCollisions;
}

void CParallelIteration::ComputeStatistics(const CIterationWork& work, std::size_t uChunks)
{
    const auto uAtoms = static_cast<std::size_t>(work.atoms.GetCount());
    m_Speeds.resize(uAtoms);
    CSpeedRange range = StartSpeedRange(work.atoms);
    std::mutex rangeMutex;
    ForEachChunk(m_Helpers, uChunks, uAtoms, [&, start = range](const CChunk& chunk) {
        const std::span<float> speeds = std::span(m_Speeds).subspan(chunk.uFirst, chunk.uCount);
        CSpeedRange found = start;
        ComputeSpeeds(work.atoms, chunk.uFirst, speeds, found, work.kernels);
        const std::lock_guard lock(rangeMutex);
        Include(range, found);
    });
    StoreStatistics(work.atoms, range, AddInOrder(0, m_Speeds));
}
