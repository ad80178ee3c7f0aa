#pragma once

#include "classes/core/CPoint.h"
#include "classes/core/CSize.h"

#include <cstdint>

class CAtoms;
class CCollisionGrid;
class CRandom;

// Replaces the atoms by count new ones with random velocities and radii (minRadius..maxRadius), at random positions
// or, with a start point in world units, all at that point; sizes the grid for the world, enters them, and computes
// the velocity statistics. Throws std::length_error or std::bad_alloc and then leaves an empty set and an empty grid.
void Populate(CAtoms& atoms, CCollisionGrid& grid, const CSize<int>& world, std::int32_t count, std::uint8_t minRadius,
              std::uint8_t maxRadius, const CPoint<int>* pStart, CRandom& random);
