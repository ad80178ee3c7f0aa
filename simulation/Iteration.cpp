#include "simulation/Iteration.h"

#include "simulation/CAtoms.h"
#include "simulation/CCollisionGrid.h"
#include "simulation/SimulationConstants.h"
#include "simulation/SimulationKernels.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <span>

namespace
{

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

// Moves all atoms and enters them into the grid: whole groups by the kernel, the rest one by one.
void MoveAtoms(CAtoms& atoms, CCollisionGrid& grid, const CSize<int>& world, const CSimulationKernels& kernels)
{
    const CGridGeometry& geometry = grid.GetGeometry();
    const std::int32_t count = atoms.GetCount();
    std::uint32_t* const pPlaces = grid.InsertMany(atoms.GetAtoms(), static_cast<std::size_t>(count));
    for (int i = kernels.pMoveAtomGroups(atoms.GetAtoms(), count, world, geometry, pPlaces); i < count; ++i)
    {
        CAtom& atom = atoms[i];
        MoveAtom(atom, world);
        pPlaces[i] = geometry.Locate(atom.x, atom.y, static_cast<float>(atom.radius));
    }
}

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
    grid.Clear();
    MoveAtoms(atoms, grid, world, kernels);
    const std::uint32_t uCollisions = CollideCells(grid, atoms.GetCount(), random, kernels);
    ComputeVelocityStatistics(atoms);
    return uCollisions;
}

CCellList GetTestedAtoms(CCollisionGrid& grid, int cell)
{
    if (cell == grid.GetCellCount())
    {
        return {nullptr, 0};
    }
    const std::span<CAtom* const> atoms = grid.GetCellAtoms(cell);
    return {atoms.data(), static_cast<int>(std::min<std::size_t>(atoms.size(), c_iMaxTestedAtomsPerCell))};
}

std::uint32_t CollideCells(CCollisionGrid& grid, std::int32_t atomCount, CRandom& random,
                           const CSimulationKernels& kernels)
{
    CCellScratch scratch;
    const CCellList none = {nullptr, 0};
    std::uint32_t uCollisions = 0;
    CCellList next = GetTestedAtoms(grid, 0);
    for (int cell = 0; cell < grid.GetCellCount(); ++cell)
    {
        const CCellList atoms = next;
        next = GetTestedAtoms(grid, cell + 1);
        uCollisions += kernels.pCollideCell(atoms, atomCount < c_iPrefetchAtoms ? none : next, scratch, random);
    }
    return uCollisions;
}

void ComputeVelocityStatistics(CAtoms& atoms)
{
    CVelocityStatistics velocities;
    for (std::int32_t index = 0; index < atoms.GetCount(); ++index)
    {
        const CAtom& atom = atoms[index];
        const float speed = std::sqrt(atom.vx * atom.vx + atom.vy * atom.vy);
        if (index == 0)
        {
            velocities = {speed, speed, speed, 0};
            continue;
        }
        velocities.tot += speed;
        if (velocities.min > speed)
        {
            velocities.min = speed;
        }
        else if (speed > velocities.max)
        {
            velocities.max = speed;
        }
    }
    if (atoms.GetCount() > 0)
    {
        velocities.avg = velocities.tot / static_cast<float>(atoms.GetCount());
    }
    atoms.SetVelocities(velocities);
}
