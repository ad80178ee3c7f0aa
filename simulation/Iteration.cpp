#include "simulation/Iteration.h"

#include "simulation/CAtoms.h"
#include "simulation/CCollisionGrid.h"
#include "simulation/CDrawAtOnce.h"
#include "simulation/IterationSteps.h"
#include "simulation/SimulationConstants.h"
#include "simulation/SimulationKernels.h"
#include "simulation/SpeedStatistics.h"

#include <algorithm>
#include <cstddef>
#include <span>

namespace
{

// From this many atoms on, the array no longer fits into the second-level cache (usually 1 to 2 MB).
constexpr std::int32_t c_iPrefetchAtoms = 1'000'000 / static_cast<std::int32_t>(sizeof(CAtom));

} // namespace

std::uint32_t AdvanceOneIteration(CAtoms& atoms, CCollisionGrid& grid, const CSize<int>& world, CRandom& random)
{
    return AdvanceOneIteration(atoms, grid, world, random, GetSimulationKernels());
}

std::uint32_t AdvanceOneIteration(CAtoms& atoms, CCollisionGrid& grid, const CSize<int>& world, CRandom& random,
                                  const CSimulationKernels& kernels)
{
    MoveAndEnter(StartIteration(atoms, grid, world, kernels, 1));
    const std::uint32_t uCollisions = CollideCells(grid, atoms.GetCount(), random, kernels);
    ComputeVelocityStatistics(atoms, kernels);
    return uCollisions;
}

CCellList GetTestedAtoms(const CCollisionGrid& grid, int cell)
{
    if (cell == grid.GetCellCount())
    {
        return {nullptr, 0};
    }
    const std::span<CAtom* const> atoms = grid.GetFilledCell(cell);
    return {atoms.data(), static_cast<int>(std::min<std::size_t>(atoms.size(), c_iMaxTestedAtomsPerCell))};
}

std::uint32_t CollideCells(CCollisionGrid& grid, std::int32_t atomCount, CRandom& random,
                           const CSimulationKernels& kernels)
{
    grid.Fill();
    CCellScratch scratch;
    CDrawAtOnce turn(random);
    const CCellList none = {nullptr, 0};
    std::uint32_t uCollisions = 0;
    CCellList next = GetTestedAtoms(grid, 0);
    for (int cell = 0; cell < grid.GetCellCount(); ++cell)
    {
        const CCellList atoms = next;
        next = GetTestedAtoms(grid, cell + 1);
        uCollisions += kernels.pCollideCell(atoms, atomCount < c_iPrefetchAtoms ? none : next, scratch, turn);
    }
    return uCollisions;
}
