#pragma once

#include "classes/core/CSize.h"
#include "simulation/CellScratch.h"

#include <cstdint>
#include <span>

class CCpuCapabilities;
class CRandom;
struct CAtom;
struct CGridGeometry;

// The inner loops of an iteration for one instruction set. All give the same bits.
struct CSimulationKernels
{
    const char* name;

    // Tests all pairs of a cell's atoms (at most c_iMaxTestedAtomsPerCell) in list order, lets the touching ones
    // collide, and returns how many did. Meanwhile fetches the atoms of the next cell into the cache.
    std::uint32_t (*pCollideCell)(const CCellList& atoms, const CCellList& next, CCellScratch& scratch,
                                  CRandom& random);

    // Moves the atoms, reflects them at the walls and writes where each goes in the grid (see CGridGeometry::Locate),
    // as far as whole groups of them go; returns how many atoms that were. The rest is for MoveAtom.
    int (*pMoveAtomGroups)(CAtom* pAtoms, int count, const CSize<int>& world, const CGridGeometry& geometry,
                           std::uint32_t* pPlaces);
};

// The kernels that such a processor can run, slowest first: the baseline is always there.
std::span<const CSimulationKernels> GetKernels(const CCpuCapabilities& capabilities);

// The fastest kernels that this process may use (see IsBaselineForced); chosen once.
const CSimulationKernels& GetSimulationKernels();
