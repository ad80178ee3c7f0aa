#pragma once

#include "simulation/CellAtom.h"
#include "simulation/SimulationConstants.h"

#include <cstdint>

// The most lanes of any instruction set.
constexpr int c_iMaxLanes = 16;

// A cell is dense if, after any row of the search, it has more than 12 pairs per row so far plus 64.
constexpr int c_iDensePairsPerRow = 12;
constexpr int c_iDensePairsSlack = 64;

// The atoms of a cell in list order.
struct CCellList
{
    CAtom* const* ppAtoms;
    int count;
};

// Working memory of the pair tests of one cell: copies of its atoms, their positions and radii as arrays, and the pairs
// found. One object serves all cells, so that it stays in the cache.
struct CCellScratch
{
    static constexpr int c_iAtoms = c_iMaxTestedAtomsPerCell + 2 * c_iMaxLanes;
    static constexpr int c_iPairs =
        c_iDensePairsPerRow * c_iMaxTestedAtomsPerCell + c_iDensePairsSlack + c_iAtoms + c_iMaxLanes;
    static constexpr int c_iLatePairs = 256;

    alignas(64) CCellAtom atoms[c_iMaxTestedAtomsPerCell];

    // Noted positions (world units) and radii: the search reads these, while responses move the atoms above.
    alignas(64) float x[c_iAtoms];
    alignas(64) float y[c_iAtoms];
    alignas(64) float radius[c_iAtoms];
    float originX; // of the points, world units
    float originY;
    alignas(64) std::int32_t points[c_iAtoms]; // packed points: x in the lower 16 bits, y in the upper 16
    alignas(64) std::uint32_t pairs[c_iPairs]; // found by the search, ascending
    std::uint32_t latePairs[c_iLatePairs];     // found later, for atoms that were pushed far, ascending
};
