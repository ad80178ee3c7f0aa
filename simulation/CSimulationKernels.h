#pragma once

#include "classes/core/CSize.h"
#include "simulation/CellScratch.h"

#include <cstdint>

struct CAtom;
struct CGridGeometry;
struct CSpeedRange;
struct IDrawTurn;

// The inner loops of an iteration for one instruction set. All sets give the same bits.
struct CSimulationKernels
{
    const char* name;

    // Tests all pairs of a cell's atoms (at most c_iMaxTestedAtomsPerCell) in list order, lets the touching ones
    // collide, and returns the number of collisions. Prefetches the atoms of the next cell at the same time.
    std::uint32_t (*pCollideCell)(const CCellList& atoms, const CCellList& next, CCellScratch& scratch,
                                  IDrawTurn& turn);

    // Moves the atoms, reflects them at the walls and writes the place of each (see CGridGeometry::Locate). Handles
    // whole groups of as many atoms as a vector has lanes, and returns how many atoms those are; the caller handles
    // the rest.
    int (*pMoveAtomGroups)(CAtom* pAtoms, int count, const CSize<int>& world, const CGridGeometry& geometry,
                           std::uint32_t* pPlaces);

    // Writes sqrt(vx * vx + vy * vy) of each atom and includes it in the range. Handles whole groups as pMoveAtomGroups
    // does, and returns how many atoms those are.
    int (*pComputeSpeeds)(const CAtom* pAtoms, int count, float* pSpeeds, CSpeedRange& range);
};
