#include "simulation/IterationSteps.h"

#include "simulation/CAtoms.h"
#include "simulation/CCollisionGrid.h"
#include "simulation/CellScratch.h"
#include "simulation/CSimulationKernels.h"

#include <algorithm>
#include <array>
#include <span>

namespace
{

// Places are counted so soon after they were computed that they are still in the first-level cache.
constexpr std::size_t c_uMoveBlock = 2048; // atoms, whole groups

// Mirrors a coordinate once if the atom has crossed the wall at 0 or at length (world units). An atom that is still
// outside afterwards stays there until the next iteration. Touching a wall is no bounce.
void Reflect(float& position, float& velocity, int radius, int length)
{
    const auto r = static_cast<float>(radius);
    if (position - r < 0)
    {
        velocity = -velocity;
        position = r - (position - r);
        return;
    }
    const float over = static_cast<float>(length) - (r + position);
    if (over < 0)
    {
        velocity = -velocity;
        position = static_cast<float>(length - radius) + over;
    }
}

void MoveAtom(CAtom& atom, const CSize<int>& world)
{
    atom.x += atom.vx;
    atom.y += atom.vy;
    Reflect(atom.y, atom.vy, atom.radius, world.cy);
    Reflect(atom.x, atom.vx, atom.radius, world.cx);
}

// Moves some atoms and writes their places: whole groups by the kernel, the rest one by one.
void MoveAtoms(CAtom* pAtoms, std::span<std::uint32_t> places, const CIterationWork& work)
{
    const CGridGeometry& geometry = work.grid.GetGeometry();
    const int count = static_cast<int>(places.size());
    for (int i = work.kernels.pMoveAtomGroups(pAtoms, count, work.world, geometry, places.data()); i < count; ++i)
    {
        CAtom& atom = pAtoms[i];
        MoveAtom(atom, work.world);
        places[static_cast<std::size_t>(i)] = geometry.Locate(atom.x, atom.y, static_cast<float>(atom.radius));
    }
}

} // namespace

CChunk CChunk::Get(std::size_t uNumber, std::size_t uChunks, std::size_t uAtoms)
{
    const auto getFirst = [=](std::size_t uChunk) {
        return uChunk == uChunks ? uAtoms : uAtoms * uChunk / uChunks / c_iMaxLanes * c_iMaxLanes;
    };
    return {uNumber, getFirst(uNumber), getFirst(uNumber + 1) - getFirst(uNumber)};
}

CIterationWork StartIteration(CAtoms& atoms, CCollisionGrid& grid, const CSize<int>& world,
                              const CSimulationKernels& kernels, std::size_t uChunks)
{
    grid.Clear();
    grid.GetLists().Start(uChunks);
    return {atoms, grid, world, kernels};
}

void MoveChunk(const CIterationWork& work, const CChunk& chunk)
{
    std::array<std::uint32_t, c_uMoveBlock> block;
    for (std::size_t uDone = 0; uDone < chunk.uCount; uDone += c_uMoveBlock)
    {
        const std::size_t uFirst = chunk.uFirst + uDone;
        const std::span places = std::span(block).first(std::min(c_uMoveBlock, chunk.uCount - uDone));
        MoveAtoms(work.atoms.GetAtoms() + uFirst, places, work);
        work.grid.GetLists().Count(chunk.uNumber, places, work.grid.GetGeometry());
    }
}

void FillChunk(const CIterationWork& work, const CChunk& chunk)
{
    work.grid.GetLists().Fill(chunk.uNumber, {work.atoms.GetAtoms() + chunk.uFirst, chunk.uCount});
}

void MoveAndEnter(const CIterationWork& work)
{
    const CChunk all = CChunk::Get(0, 1, static_cast<std::size_t>(work.atoms.GetCount()));
    MoveChunk(work, all);
    work.grid.GetLists().MakeRoom();
    FillChunk(work, all);
    work.grid.MarkFilled();
}
