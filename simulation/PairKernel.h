#pragma once

#include "simulation/CellWork.h"
#include "simulation/CollisionResponse.h"
#include "simulation/PairSearch.h"

#include <cstdint>

// The pair tests of one cell, for a source that has defined Lanes: so many floats tested at a time.
//
// The rule is: every pair i < j of the list in that order, each at the positions that the responses before it have
// left. Two ways lead to the same bits.
//
// Sparse: from the positions at one moment, find all pairs nearer than touching plus a margin; then go through those
// few one by one and test them exactly, where the atoms are by then. A pair that was not found cannot touch as long as
// both atoms are within half the margin of where they were. When one has been pushed further, its pairs are looked for
// again and merged in. The search never waits for a response, which is what makes it fast.
//
// Dense: where everything touches everything, atoms are pushed further all the time. There each row is tested exactly,
// and after each hit the rest of the row again.
//
// Everything here is static: it is compiled once per instruction set, and the linker must not merge the copies.

// So many atoms of a cell are few: most such cells have no touching pair at all.
constexpr int c_iFewAtoms = 16;

static inline bool AreTouching(float dx, float dy, float radiusSum)
{
    return dy * dy + dx * dx <= radiusSum * radiusSum;
}

// The lanes behind the last atom hold a position that is no number: they touch nothing.
static inline void FillLanesBehind(CCellScratch& scratch, int count)
{
    Lanes::Fill(scratch.x + count, __builtin_nanf(""));
    Lanes::Fill(scratch.y + count, 0.0F);
    Lanes::Fill(scratch.radius + count, 0.0F);
}

// Tests the pairs of row i from column firstColumn on, exactly and each after the one before, at the noted positions,
// which must be those of now and are kept so.
static inline std::uint32_t CollideRow(const CCell& cell, int i, int firstColumn)
{
    CCellScratch& scratch = cell.scratch;
    std::uint32_t uCollisions = 0;
    CCellAtom& a = scratch.atoms[i];
    Lanes::CCircle circle = Lanes::MakeCircle(scratch.x[i], scratch.y[i], scratch.radius[i]);
    int block = firstColumn & ~(Lanes::c_iCount - 1);
    std::uint32_t uLanesLeft = LanesFrom(firstColumn - block);
    for (; block < cell.count; block += Lanes::c_iCount)
    {
        std::uint32_t uTouching = Lanes::FindTouching(circle, scratch, block) & uLanesLeft;
        uLanesLeft = ~std::uint32_t{0};
        while (uTouching != 0)
        {
            const int lane = __builtin_ctz(uTouching);
            const int j = block + lane;
            CCellAtom& b = scratch.atoms[j];
            RespondToTouch(a, b, a.radius + b.radius, cell.random);
            ++uCollisions;
            circle = Lanes::MakeCircle(a.x, a.y, a.radius);
            scratch.x[j] = b.x;
            scratch.y[j] = b.y;
            // Lane j is behind us; the lanes after it are where they were.
            uTouching = Lanes::FindTouching(circle, scratch, block) & (LanesFrom(lane) << 1);
        }
    }
    scratch.x[i] = a.x;
    scratch.y[i] = a.y;
    return uCollisions;
}

// Tests all pairs behind that one, row by row.
static inline std::uint32_t CollideRows(const CCell& cell, int row, int column)
{
    CCellScratch& scratch = cell.scratch;
    for (int i = 0; i < cell.count; ++i)
    {
        scratch.x[i] = scratch.atoms[i].x;
        scratch.y[i] = scratch.atoms[i].y;
    }
    FillLanesBehind(scratch, cell.count);
    std::uint32_t uCollisions = CollideRow(cell, row, column + 1);
    for (int i = row + 1; i < cell.count - 1; ++i)
    {
        uCollisions += CollideRow(cell, i, i + 1);
    }
    return uCollisions;
}

// The response, apart from the loop below: inlined there it would take the registers that the loop needs.
__attribute__((noinline)) static void Respond(CCellAtom& a, CCellAtom& b, CRandom& random)
{
    RespondToTouch(a, b, a.radius + b.radius, random);
}

// Tests the pairs found, and the late ones among them, in order. Five of six do not touch, and a processor can look
// ahead over some 500 instructions: the fewer a pair takes, the more responses are computed at the same time.
static inline std::uint32_t CollideFoundPairs(const CCell& cell)
{
    std::uint32_t uCollisions = 0;
    CLatePairs late(cell.scratch);
    std::uint32_t uLatePair = c_uNoPair;
    const std::uint32_t* pPair = cell.scratch.pairs;
    for (;;)
    {
        std::uint32_t uPair = *pPair++;
        if (uLatePair <= uPair) [[unlikely]]
        {
            if (uLatePair == c_uNoPair)
            {
                return uCollisions;
            }
            pPair -= uLatePair < uPair ? 1 : 0;
            uPair = uLatePair;
            uLatePair = late.pPairs[++late.next];
        }
        CCellAtom& a = GetAtomAt(cell.scratch, uPair >> c_iPairShift);
        CCellAtom& b = GetAtomAt(cell.scratch, static_cast<std::uint16_t>(uPair));
        if (!AreTouching(a.x - b.x, a.y - b.y, a.radius + b.radius))
        {
            continue;
        }
        Respond(a, b, cell.random);
        ++uCollisions;
        if (IsPushedFar(a) || IsPushedFar(b)) [[unlikely]]
        {
            if ((IsPushedFar(a) && !FindAgain(cell, a, uPair, late)) ||
                (IsPushedFar(b) && !FindAgain(cell, b, uPair, late)))
            {
                return uCollisions + CollideRows(cell, static_cast<int>(&a - cell.scratch.atoms),
                                                 static_cast<int>(&b - cell.scratch.atoms));
            }
            uLatePair = late.pPairs[late.next];
        }
    }
}

// Whether any two of a few atoms touch. Where none do, none is moved, so nothing else needs to be known.
static inline bool HasTouchingPair(CAtom* const* ppAtoms, int count, CCellScratch& scratch)
{
    for (int i = 0; i < count; ++i)
    {
        scratch.x[i] = ppAtoms[i]->x;
        scratch.y[i] = ppAtoms[i]->y;
        scratch.radius[i] = static_cast<float>(ppAtoms[i]->radius);
    }
    FillLanesBehind(scratch, count);
    std::uint32_t uTouching = 0;
    for (int block = 0; block < count; block += Lanes::c_iCount)
    {
        for (int i = 0; i < block + Lanes::c_iCount - 1 && i < count - 1; ++i)
        {
            const Lanes::CCircle circle = Lanes::MakeCircle(scratch.x[i], scratch.y[i], scratch.radius[i]);
            const std::uint32_t uLater = i < block ? ~std::uint32_t{0} : LanesFrom(i + 1 - block);
            uTouching |= Lanes::FindTouching(circle, scratch, block) & uLater;
        }
    }
    return uTouching != 0;
}

// The rule as it stands, for a cell of so few atoms that looking ahead does not pay.
static inline std::uint32_t CollideFewAtoms(CAtom* const* ppAtoms, int count, CCellScratch& scratch, CRandom& random)
{
    std::uint32_t uCollisions = 0;
    if (!HasTouchingPair(ppAtoms, count, scratch))
    {
        return uCollisions;
    }
    for (int i = 0; i < count - 1; ++i)
    {
        CAtom& a = *ppAtoms[i];
        for (int j = i + 1; j < count; ++j)
        {
            CAtom& b = *ppAtoms[j];
            if (AreTouching(a.x - b.x, a.y - b.y, static_cast<float>(a.radius + b.radius))) [[unlikely]]
            {
                RespondToTouch(a, b, random);
                ++uCollisions;
            }
        }
    }
    return uCollisions;
}

// Tests all pairs of a cell's atoms, at most c_iMaxTestedAtomsPerCell of them, and returns the number of collisions.
static inline std::uint32_t CollideCellAtoms(const CCellList& atoms, const CCellList& next, CCellScratch& scratch,
                                             CRandom& random)
{
    if (atoms.count <= c_iFewAtoms)
    {
        PrefetchFrom(next, 0);
        return CollideFewAtoms(atoms.ppAtoms, atoms.count, scratch, random);
    }
    const CCell cell = OpenCell(atoms, next, scratch, random);
    MakePoints(cell);
    const bool bFound = FindPairs(cell);
    PrefetchFrom(next, atoms.count - 1);
    const std::uint32_t uCollisions = bFound ? CollideFoundPairs(cell) : CollideRows(cell, 0, 0);
    if (uCollisions != 0)
    {
        CloseCell(cell, atoms.ppAtoms);
    }
    return uCollisions;
}
