#pragma once

#include "classes/core/CSize.h"

#include <cstdint>

class CAtoms;
class CCollisionGrid;
class CRandom;
struct CSimulationKernels;

// Moves every atom by its velocity, reflects it at the walls, enters all into the grid (sized for this world before),
// lets touching atoms collide cell by cell, and refreshes the velocity statistics. Returns the number of collisions
// handled; a pair that shares several cells counts once in each. Throws std::bad_alloc while the grid still grows.
std::uint32_t AdvanceOneIteration(CAtoms& atoms, CCollisionGrid& grid, const CSize<int>& world, CRandom& random);

// The same with kernels of the caller's choice; all give the same bits.
std::uint32_t AdvanceOneIteration(CAtoms& atoms, CCollisionGrid& grid, const CSize<int>& world, CRandom& random,
                                  const CSimulationKernels& kernels);

// Minimum, maximum, total and average of sqrt(vx * vx + vy * vy) over all atoms, added up in array order in single
// precision. All zero for an empty set.
void ComputeVelocityStatistics(CAtoms& atoms);
