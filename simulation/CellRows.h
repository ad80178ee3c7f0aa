#pragma once

#include <cstdint>

class CCollisionGrid;
class CRandom;
struct CSimulationKernels;
struct IWavefront;

// The part of one thread in CollideCells: takes cells from the wavefront until none is left, and lets the touching
// atoms of each collide. The lists of the grid must be filled. Returns the number of collisions of its cells. An
// exception aborts the wavefront too.
std::uint32_t CollideRows(const CCollisionGrid& grid, IWavefront& wavefront, CRandom& random,
                          const CSimulationKernels& kernels);
