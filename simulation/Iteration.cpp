#include "simulation/Iteration.h"

#include "simulation/CAtoms.h"
#include "simulation/CCollisionGrid.h"
#include "simulation/HandleAtomCollision.h"
#include "simulation/SimulationConstants.h"

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

void MoveAtoms(CAtoms& atoms, CCollisionGrid& grid, const CSize<int>& world)
{
    for (std::int32_t index = 0; index < atoms.GetCount(); ++index)
    {
        CAtom& atom = atoms[index];
        atom.x += atom.vx;
        atom.y += atom.vy;
        Reflect(atom.y, atom.vy, atom.radius, world.cy);
        Reflect(atom.x, atom.vx, atom.radius, world.cx);
        grid.Insert(atom);
    }
}

float Square(float value)
{
    return value * value;
}

bool AreTouching(const CAtom& a, const CAtom& b)
{
    const auto radiusSum = static_cast<float>(a.radius + b.radius);
    return Square(a.y - b.y) + Square(a.x - b.x) <= Square(radiusSum);
}

// Every pair sees where the collisions before it have left the atoms.
std::uint32_t CollideCell(std::span<CAtom* const> atoms, CRandom& random)
{
    const std::size_t uCount = std::min<std::size_t>(atoms.size(), c_iMaxTestedAtomsPerCell);
    std::uint32_t uCollisions = 0;
    for (std::size_t i = 0; i < uCount; ++i)
    {
        for (std::size_t j = i + 1; j < uCount; ++j)
        {
            if (AreTouching(*atoms[i], *atoms[j]))
            {
                HandleAtomCollision(*atoms[i], *atoms[j], random);
                ++uCollisions;
            }
        }
    }
    return uCollisions;
}

} // namespace

std::uint32_t AdvanceOneIteration(CAtoms& atoms, CCollisionGrid& grid, const CSize<int>& world, CRandom& random)
{
    grid.Clear();
    MoveAtoms(atoms, grid, world);
    std::uint32_t uCollisions = 0;
    for (int cell = 0; cell < grid.GetCellCount(); ++cell)
    {
        uCollisions += CollideCell(grid.GetCellAtoms(cell), random);
    }
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
