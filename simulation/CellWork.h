#pragma once

#include "simulation/CAtom.h"
#include "simulation/CellScratch.h"

struct IDrawTurn;

// Opens and closes a cell for the pair tests, and prefetches the atoms of the next one. The functions are static, see
// SimulationKernelSets.h.

// A cell at work.
struct CCell
{
    int count;
    CCellList next;
    CCellScratch& scratch;
    IDrawTurn& turn;
    float minRadius; // of its atoms, world units
    float maxRadius;
};

// Prefetches one atom of the list, if there is one at the index. The atoms of a cell are scattered in memory;
// prefetched while the cell before is at work, they are in the cache when their turn comes. (Always inlined: GCC takes
// a function that only prefetches for one without effect and drops the calls.)
__attribute__((always_inline)) static inline void Prefetch(const CCellList& list, int index)
{
    if (index < list.count)
    {
        const CAtom* const pAtom = list.ppAtoms[index];
        __builtin_prefetch(pAtom);
        // An atom may cross into a second cache line.
        __builtin_prefetch(&pAtom->reserved);
    }
}

// Prefetches all atoms from an index on.
__attribute__((always_inline)) static inline void PrefetchFrom(const CCellList& list, int firstIndex)
{
    for (int index = firstIndex; index < list.count; ++index)
    {
        Prefetch(list, index);
    }
}

// Copies the atoms into scratch and notes their positions and radii. The list must not be empty.
static inline CCell OpenCell(const CCellList& list, const CCellList& next, CCellScratch& scratch, IDrawTurn& turn)
{
    CAtom* const* const ppAtoms = list.ppAtoms;
    const int count = list.count;
    int minRadius = ppAtoms[0]->radius;
    int maxRadius = minRadius;
    for (int i = 0; i < count; ++i)
    {
        const CAtom& atom = *ppAtoms[i];
        scratch.atoms[i] = MakeCellAtom(atom);
        scratch.x[i] = atom.x;
        scratch.y[i] = atom.y;
        scratch.radius[i] = static_cast<float>(atom.radius);
        minRadius = atom.radius < minRadius ? atom.radius : minRadius;
        maxRadius = atom.radius > maxRadius ? atom.radius : maxRadius;
    }
    return {count, next, scratch, turn, static_cast<float>(minRadius), static_cast<float>(maxRadius)};
}

// Writes the copies back to the atoms of the list.
static inline void CloseCell(const CCell& cell, CAtom* const* ppAtoms)
{
    for (int i = 0; i < cell.count; ++i)
    {
        WriteBack(cell.scratch.atoms[i], *ppAtoms[i]);
    }
}
