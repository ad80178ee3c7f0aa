#pragma once

#include "classes/core/CPoint.h"
#include "classes/core/CSize.h"

#include <cstdint>

class CAtoms;
class CCollisionGrid;
class CRandom;

// Replaces the atoms by count new ones with random velocities and radii (minRadius..maxRadius), and enters them into
// the grid, which is resized to the world. Positions are random if pStart is null; otherwise all atoms start at that
// point (world units), clamped into the world. Computes the velocity statistics. Throws std::length_error or
// std::bad_alloc; set and grid are then empty.
void Populate(CAtoms& atoms, CCollisionGrid& grid, const CSize<int>& world, std::int32_t count, std::uint8_t minRadius,
              std::uint8_t maxRadius, const CPoint<int>* pStart, CRandom& random);
