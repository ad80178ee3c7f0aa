#pragma once

#include "simulation/CellAtom.h"
#include "simulation/SimulationConstants.h"

#include <cstdint>

// The most floats that a kernel handles at a time.
constexpr int c_iMaxLanes = 16;

// Pairs per row of the search from which on a cell counts as dense, and what the first rows may have beyond that.
constexpr int c_iDensePairsPerRow = 12;
constexpr int c_iDensePairsSlack = 64;

// The atoms of a cell in list order.
struct CCellList
{
    CAtom* const* ppAtoms;
    int count;
};

// Working memory of the pair tests of one cell: copies of its atoms, their positions and radii side by
// side, and the pairs found. Made
// once and used for every cell, so that it stays in the nearest cache.
struct CCellScratch
{
    static constexpr int c_iAtoms = c_iMaxTestedAtomsPerCell + 2 * c_iMaxLanes;
    static constexpr int c_iPairs =
        c_iDensePairsPerRow * c_iMaxTestedAtomsPerCell + c_iDensePairsSlack + c_iAtoms + c_iMaxLanes;
    static constexpr int c_iLatePairs = 256;

    alignas(64) CCellAtom atoms[c_iMaxTestedAtomsPerCell];

    // What the search looks at; a copy that stands still while responses move the atoms above.
    alignas(64) float x[c_iAtoms];
    alignas(64) float y[c_iAtoms];
    alignas(64) float radius[c_iAtoms];
    float originX; // of the points
    float originY;
    alignas(64) std::int32_t points[c_iAtoms]; // x and y as whole numbers of 16 bits each, see MakePoint
    alignas(64) std::uint32_t pairs[c_iPairs]; // found by the search, in order
    std::uint32_t latePairs[c_iLatePairs];     // found later, for atoms that were pushed far, in order
};
