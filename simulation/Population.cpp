#include "simulation/Population.h"

#include "classes/core/CRandom.h"
#include "simulation/CAtoms.h"
#include "simulation/CCollisionGrid.h"
#include "simulation/SimulationConstants.h"
#include "simulation/SpeedStatistics.h"

#include <algorithm>
#include <cmath>

namespace
{

// The start point, clamped so that the largest atom is inside the walls. In a world too small for that: its radius from
// the left or top wall.
CPoint<float> FitIntoWorld(const CPoint<int>& point, const CSize<int>& world, int radius)
{
    return {static_cast<float>(std::max(radius, std::min(point.x, world.cx - radius))),
            static_cast<float>(std::max(radius, std::min(point.y, world.cy - radius)))};
}

// Keeps the largest radius away from the walls, because the radius of this atom is drawn later.
CPoint<float> DrawPosition(const CSize<int>& world, int radius, CRandom& random)
{
    const auto low = static_cast<float>(radius);
    CPoint<float> position;
    position.x = random.GetRandomNumber_Float(low, static_cast<float>(world.cx - radius));
    position.y = random.GetRandomNumber_Float(low, static_cast<float>(world.cy - radius));
    return position;
}

void DrawVelocity(CAtom& atom, CRandom& random)
{
    atom.vx = random.GetRandomNumber_Float(-c_fMaxStartVelocity, c_fMaxStartVelocity);
    atom.vy = random.GetRandomNumber_Float(-c_fMaxStartVelocity, c_fMaxStartVelocity);
    atom.speed = std::sqrt(atom.vx * atom.vx + atom.vy * atom.vy);
}

// The order of the draws must not change, or seeds would give other worlds: x, y, vx, vy, radius.
void CreateAtoms(CAtoms& atoms, CCollisionGrid& grid, const CSize<int>& world, std::uint8_t minRadius,
                 std::uint8_t maxRadius, const CPoint<int>* pStart, CRandom& random)
{
    for (std::int32_t index = 0; index < atoms.GetCount(); ++index)
    {
        CAtom& atom = atoms[index];
        const CPoint<float> position =
            pStart != nullptr ? FitIntoWorld(*pStart, world, maxRadius) : DrawPosition(world, maxRadius, random);
        atom.x = position.x;
        atom.y = position.y;
        DrawVelocity(atom, random);
        atom.radius = random.GetRandomNumber_Uint8(minRadius, maxRadius);
        grid.Insert(atom);
    }
}

} // namespace

void Populate(CAtoms& atoms, CCollisionGrid& grid, const CSize<int>& world, std::int32_t count, std::uint8_t minRadius,
              std::uint8_t maxRadius, const CPoint<int>* pStart, CRandom& random)
{
    try
    {
        grid.Resize(world);
        atoms.Allocate(count);
        CreateAtoms(atoms, grid, world, minRadius, maxRadius, pStart, random);
        ComputeVelocityStatistics(atoms);
    }
    catch (...)
    {
        // The grid must not point to freed atoms.
        grid.Clear();
        atoms.Allocate(0);
        throw;
    }
}
