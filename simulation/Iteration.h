#pragma once

#include "classes/core/CSize.h"
#include "simulation/CellScratch.h"

#include <cstdint>

class CAtoms;
class CCollisionGrid;
class CRandom;
struct CSimulationKernels;

// Moves every atom by its velocity, reflects it at the walls, enters all atoms into the grid (which must have been
// resized to this world), lets touching atoms collide cell by cell, and updates the velocity statistics. Returns the
// number of collisions; a pair that shares several cells counts once in each. Throws std::bad_alloc if the grid cannot
// grow. Uses one thread; CIterationRunner uses several, with the same bits.
std::uint32_t AdvanceOneIteration(CAtoms& atoms, CCollisionGrid& grid, const CSize<int>& world, CRandom& random);

// The same with the given kernels; all kernels give the same bits.
std::uint32_t AdvanceOneIteration(CAtoms& atoms, CCollisionGrid& grid, const CSize<int>& world, CRandom& random,
                                  const CSimulationKernels& kernels);

// The step of an iteration that tests the pairs of all cells, cell by cell, and lets touching atoms collide. Returns
// the number of collisions. atomCount is that of the world.
std::uint32_t CollideCells(CCollisionGrid& grid, std::int32_t atomCount, CRandom& random,
                           const CSimulationKernels& kernels);

// The atoms of a cell that take part in its pair tests: the first c_iMaxTestedAtomsPerCell. None for cell ==
// GetCellCount(), the one after the last. The lists must be filled.
CCellList GetTestedAtoms(const CCollisionGrid& grid, int cell);
