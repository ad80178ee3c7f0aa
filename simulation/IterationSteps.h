#pragma once

#include "classes/core/CSize.h"

#include <cstddef>
#include <cstdint>

class CAtoms;
class CCollisionGrid;
struct CSimulationKernels;

// The steps of an iteration that can be done by several threads, each a chunk of the atoms.

// The chunk with that number if the atoms are divided evenly; all but the last are whole groups of the kernels.
struct CChunk
{
    std::size_t uNumber;
    std::size_t uFirst;
    std::size_t uCount;

    static CChunk Get(std::size_t uNumber, std::size_t uChunks, std::size_t uAtoms);
};

// What all chunks of an iteration share.
struct CIterationWork
{
    CAtoms& atoms;
    CCollisionGrid& grid;
    CSize<int> world;
    const CSimulationKernels& kernels;
};

// Clears the grid and prepares the sort of the entries of all atoms for that many chunks. Throws std::bad_alloc.
CIterationWork StartIteration(CAtoms& atoms, CCollisionGrid& grid, const CSize<int>& world,
                              const CSimulationKernels& kernels, std::size_t uChunks);

// Moves the atoms, reflects them at the walls, finds their places and counts the entries of the cells. Throws
// std::bad_alloc.
void MoveChunk(const CIterationWork& work, const CChunk& chunk);

// Enters the atoms into the lists of the cells.
void FillChunk(const CIterationWork& work, const CChunk& chunk);

// These steps for all atoms on one thread. The work must be for one chunk.
void MoveAndEnter(const CIterationWork& work);
