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

// Mirrors a coordinate that has gone beyond the wall at 0 or at length, once. What is still outside afterwards stays
// there for now; touching is no bounce.
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

// Moves all atoms and enters them into the grid, most of them in groups.
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

// The first c_iMaxTestedAtomsPerCell atoms of a cell.
std::span<CAtom* const> GetTestedAtoms(CCollisionGrid& grid, int cell)
{
    const std::span<CAtom* const> atoms = grid.GetCellAtoms(cell);
    return atoms.first(std::min<std::size_t>(atoms.size(), c_iMaxTestedAtomsPerCell));
}

// The atoms of a cell lie anywhere in the array. Asked for one cell ahead, they are near when their turn comes.
void Prefetch(std::span<CAtom* const> atoms)
{
    for (const CAtom* pAtom : atoms)
    {
        // An atom may reach over into a second cache line.
        __builtin_prefetch(pAtom);
        __builtin_prefetch(&pAtom->reserved);
    }
}

std::uint32_t CollideCells(CCollisionGrid& grid, CRandom& random, const CSimulationKernels& kernels)
{
    CCellScratch scratch;
    std::uint32_t uCollisions = 0;
    std::span<CAtom* const> next = GetTestedAtoms(grid, 0);
    for (int cell = 0; cell < grid.GetCellCount(); ++cell)
    {
        const std::span<CAtom* const> atoms = next;
        if (cell + 1 < grid.GetCellCount())
        {
            next = GetTestedAtoms(grid, cell + 1);
            Prefetch(next);
        }
        uCollisions += kernels.pCollideCell(atoms.data(), static_cast<int>(atoms.size()), scratch, random);
    }
    return uCollisions;
}

} // namespace

std::uint32_t AdvanceOneIteration(CAtoms& atoms, CCollisionGrid& grid, const CSize<int>& world, CRandom& random)
{
    const CSimulationKernels& kernels = GetSimulationKernels();
    grid.Clear();
    MoveAtoms(atoms, grid, world, kernels);
    const std::uint32_t uCollisions = CollideCells(grid, random, kernels);
    ComputeVelocityStatistics(atoms);
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
