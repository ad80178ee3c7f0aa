#pragma once

#include "simulation/CellWork.h"
#include "simulation/CollisionResponse.h"
#include "simulation/Lanes.h"
#include "simulation/PairSearch.h"

#include <cstdint>

// Up to this many atoms, skip the search: most such cells have no touching pair at all.
constexpr int c_iFewAtoms = 16;

// The pair tests of one cell.
//
// The rule: test every pair i < j of the list in ascending order of (i, j), each at the positions that the responses
// before it have left. The order may not change, because each response moves atoms that later pairs test. Two ways
// give the same bits.
//
// Sparse: from the positions at one moment, find all pairs nearer than touching distance plus a margin; then test
// those few one by one, exactly, at their positions by then. A pair that was not found cannot touch while both atoms
// are within half the margin of where they were. If an atom is pushed further, search its pairs again and merge them
// in. The search never waits for a response; that makes it fast.
//
// Dense: where everything touches everything, atoms are pushed further all the time. There, test each row exactly, and
// test the rest of the row again after each hit.
template<IsLanes Lanes>
class CPairKernel
{
public:
    // See CSimulationKernels::pCollideCell.
    static std::uint32_t CollideCell(const CCellList& atoms, const CCellList& next, CCellScratch& scratch,
                                     IDrawTurn& turn)
    {
        if (atoms.count <= c_iFewAtoms)
        {
            PrefetchFrom(next, 0);
            return CollideFewAtoms(atoms.ppAtoms, atoms.count, scratch, turn);
        }
        const CCell cell = OpenCell(atoms, next, scratch, turn);
        Search::MakePoints(cell);
        const bool bFound = Search::FindPairs(cell);
        PrefetchFrom(next, atoms.count - 1);
        const std::uint32_t uCollisions = bFound ? CollideFoundPairs(cell) : CollideRows(cell, 0, 0);
        if (uCollisions != 0)
        {
            CloseCell(cell, atoms.ppAtoms);
        }
        return uCollisions;
    }

private:
    using Search = CPairSearch<Lanes>;

    // dy * dy + dx * dx <= (r1 + r2) * (r1 + r2), in this order; false for NaN.
    static bool AreTouching(float dx, float dy, float radiusSum) { return dy * dy + dx * dx <= radiusSum * radiusSum; }

    // Writes NaN into the lanes after the last atom: they touch nothing.
    static void FillLanesAfter(CCellScratch& scratch, int count)
    {
        Lanes::Fill(scratch.x + count, __builtin_nanf(""));
        Lanes::Fill(scratch.y + count, 0.0F);
        Lanes::Fill(scratch.radius + count, 0.0F);
    }

    // Tests the pairs of row i from column firstColumn on, exactly and in order. The noted positions must be the
    // present ones, and are kept so.
    static std::uint32_t CollideRow(const CCell& cell, int i, int firstColumn)
    {
        CCellScratch& scratch = cell.scratch;
        std::uint32_t uCollisions = 0;
        CCellAtom& a = scratch.atoms[i];
        typename Lanes::CCircle circle = Lanes::MakeCircle(scratch.x[i], scratch.y[i], scratch.radius[i]);
        int block = firstColumn & ~(Lanes::c_iCount - 1);
        std::uint32_t uLanesLeft = Search::LanesFrom(firstColumn - block);
        for (; block < cell.count; block += Lanes::c_iCount)
        {
            std::uint32_t uTouching = Lanes::FindTouching(circle, scratch, block) & uLanesLeft;
            uLanesLeft = ~std::uint32_t{0};
            while (uTouching != 0)
            {
                const int lane = __builtin_ctz(uTouching);
                const int j = block + lane;
                CCellAtom& b = scratch.atoms[j];
                RespondToTouch(a, b, a.radius + b.radius, cell.turn);
                ++uCollisions;
                circle = Lanes::MakeCircle(a.x, a.y, a.radius);
                scratch.x[j] = b.x;
                scratch.y[j] = b.y;
                // Lane j is done; the response has not moved the lanes after it.
                uTouching = Lanes::FindTouching(circle, scratch, block) & (Search::LanesFrom(lane) << 1);
            }
        }
        scratch.x[i] = a.x;
        scratch.y[i] = a.y;
        return uCollisions;
    }

    // Tests all pairs after (row, column), row by row. Kept out of the two functions that call it: they are the usual
    // case, and this is large.
    __attribute__((noinline)) static std::uint32_t CollideRows(const CCell& cell, int row, int column)
    {
        CCellScratch& scratch = cell.scratch;
        for (int i = 0; i < cell.count; ++i)
        {
            scratch.x[i] = scratch.atoms[i].x;
            scratch.y[i] = scratch.atoms[i].y;
        }
        FillLanesAfter(scratch, cell.count);
        std::uint32_t uCollisions = CollideRow(cell, row, column + 1);
        for (int i = row + 1; i < cell.count - 1; ++i)
        {
            uCollisions += CollideRow(cell, i, i + 1);
        }
        return uCollisions;
    }

    // The response, kept out of the loop below: inlined, it would take the registers that the loop needs.
    __attribute__((noinline)) static void Respond(CCellAtom& a, CCellAtom& b, IDrawTurn& turn)
    {
        RespondToTouch(a, b, a.radius + b.radius, turn);
    }

    // Tests the found pairs and the late ones, merged in ascending order. Five of six do not touch, and a processor can
    // look ahead over some 500 instructions: the fewer instructions a pair takes, the more responses overlap.
    static std::uint32_t CollideFoundPairs(const CCell& cell)
    {
        std::uint32_t uCollisions = 0;
        typename Search::CLatePairs late(cell.scratch);
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
            CCellAtom& a = Search::GetAtomAt(cell.scratch, uPair >> c_iPairShift);
            CCellAtom& b = Search::GetAtomAt(cell.scratch, static_cast<std::uint16_t>(uPair));
            if (!AreTouching(a.x - b.x, a.y - b.y, a.radius + b.radius))
            {
                continue;
            }
            Respond(a, b, cell.turn);
            ++uCollisions;
            if (Search::IsPushedFar(a) || Search::IsPushedFar(b)) [[unlikely]]
            {
                if ((Search::IsPushedFar(a) && !Search::FindAgain(cell, a, uPair, late)) ||
                    (Search::IsPushedFar(b) && !Search::FindAgain(cell, b, uPair, late)))
                {
                    return uCollisions + CollideRows(cell, static_cast<int>(&a - cell.scratch.atoms),
                                                     static_cast<int>(&b - cell.scratch.atoms));
                }
                uLatePair = late.pPairs[late.next];
            }
        }
    }

    // True if any two of a few atoms touch. If none do, no atom moves and the cell is done.
    static bool HasTouchingPair(CAtom* const* ppAtoms, int count, CCellScratch& scratch)
    {
        for (int i = 0; i < count; ++i)
        {
            scratch.x[i] = ppAtoms[i]->x;
            scratch.y[i] = ppAtoms[i]->y;
            scratch.radius[i] = static_cast<float>(ppAtoms[i]->radius);
        }
        FillLanesAfter(scratch, count);
        std::uint32_t uTouching = 0;
        for (int block = 0; block < count; block += Lanes::c_iCount)
        {
            for (int i = 0; i < block + Lanes::c_iCount - 1 && i < count - 1; ++i)
            {
                const typename Lanes::CCircle circle = Lanes::MakeCircle(scratch.x[i], scratch.y[i], scratch.radius[i]);
                const std::uint32_t uLater = i < block ? ~std::uint32_t{0} : Search::LanesFrom(i + 1 - block);
                uTouching |= Lanes::FindTouching(circle, scratch, block) & uLater;
            }
        }
        return uTouching != 0;
    }

    // The rule, pair by pair, for a cell of so few atoms that a search does not pay.
    static std::uint32_t CollideFewAtoms(CAtom* const* ppAtoms, int count, CCellScratch& scratch, IDrawTurn& turn)
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
                    RespondToTouch(a, b, turn);
                    ++uCollisions;
                }
            }
        }
        return uCollisions;
    }
};
