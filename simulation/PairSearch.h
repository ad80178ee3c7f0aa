#pragma once

#include "simulation/CellWork.h"
#include "simulation/Lanes.h"
#include "simulation/SimulationConstants.h"

#include <cstdint>

// The search finds the pairs of a cell that may touch while the cell is at work: the pairs nearer than touching
// distance plus a margin, c_iSearchCount at a time, in whole numbers of 16 bits.

// Added to the touching distance, world units. A smaller margin finds fewer pairs in vain; with a larger one fewer
// atoms are pushed out of it. Pushes are about 0.2 on average, and rarely 1.
constexpr float c_fSearchMargin = 3.0F;

// Points per world unit. A point is a position relative to the first atom of the cell, rounded to a whole number.
constexpr float c_fPointsPerUnit = 16.0F;

// Points are clamped to -6000..6000 per axis, which is 375 world units: enough for a cell and the largest radius.
// Clamping brings points nearer to each other, never further apart, so no pair is missed.
constexpr float c_fFarthestPoint = 6000.0F;

// Both coordinates of the lanes after the last atom: out of reach of any atom.
constexpr std::int32_t c_iNowhere = 16'383;

// How far an atom may be from where the search has seen it, world units: half the margin, minus a bound for the error
// of rounding to points. If both atoms of a pair are within it, a pair that was not found cannot touch.
constexpr float c_fFarthestPush = c_fSearchMargin / 2 - 0.1F;

// Rounding moves a point by at most half the diagonal between two points: the square root of 2, which is below 1.5, of
// half a point.
static_assert(c_fFarthestPush > 0 && c_fFarthestPush <= c_fSearchMargin / 2 - 1.5F * 0.5F / c_fPointsPerUnit);

// A pair is one number: the byte offset of atom i from the first of the cell in the upper 16 bits, that of atom j in
// the lower 16. So pairs sort as their numbers do, and finding an atom takes no multiplication.
constexpr int c_iPairShift = 16;
constexpr std::uint32_t c_uAtomStride = sizeof(CCellAtom);
static_assert(c_iMaxTestedAtomsPerCell * c_uAtomStride < 1U << c_iPairShift);

// Sentinel: above every pair.
constexpr std::uint32_t c_uNoPair = ~std::uint32_t{0};

template<IsLanes Lanes>
class CPairSearch
{
public:
    // The pairs that were found after the search, in ascending order, from the next one to handle on. The sentinel
    // follows the last.
    struct CLatePairs
    {
        std::uint32_t* pPairs;
        int next;
        int end;

        explicit CLatePairs(CCellScratch& scratch) : pPairs(scratch.latePairs), next(0), end(0)
        {
            pPairs[0] = c_uNoPair;
        }

        // Inserts a pair in order, unless it is there already. False if there is no room.
        bool Insert(std::uint32_t uPair)
        {
            int place = end;
            while (place > next && pPairs[place - 1] > uPair)
            {
                --place;
            }
            if (place > next && pPairs[place - 1] == uPair)
            {
                return true;
            }
            if (end + 2 > CCellScratch::c_iLatePairs)
            {
                return false;
            }
            for (int i = ++end; i > place; --i)
            {
                pPairs[i] = pPairs[i - 1];
            }
            pPairs[place] = uPair;
            return true;
        }
    };

    // Computes the points of the noted positions.
    static void MakePoints(const CCell& cell)
    {
        CCellScratch& scratch = cell.scratch;
        scratch.originX = scratch.x[0];
        scratch.originY = scratch.y[0];
        for (int block = 0; block < cell.count; block += Lanes::c_iCount)
        {
            Lanes::MakePoints(scratch, block, c_fPointsPerUnit, c_fFarthestPoint);
        }
        FillPointsAfter(cell);
    }

    // Writes the near pairs to scratch.pairs in ascending order, and the sentinel after the last. False for a dense
    // cell.
    static bool FindPairs(const CCell& cell)
    {
        CCellScratch& scratch = cell.scratch;
        std::uint32_t* pEnd = scratch.pairs;
        const std::uint32_t* pDense = pEnd + c_iDensePairsSlack;
        for (int i = 0; i < cell.count - 1; ++i)
        {
            Prefetch(cell.next, i);
            const CDisc disc = MakeSearchDisc(cell, i, scratch.radius[i]);
            const int firstBlock = (i + 1) & ~(Lanes::c_iSearchCount - 1);
            std::uint32_t uNear = Lanes::FindNear(disc, scratch, firstBlock) & LanesFrom(i + 1 - firstBlock);
            pEnd += Lanes::Append(pEnd, uNear, MakePair(i, firstBlock));
            for (int block = firstBlock + Lanes::c_iSearchCount; block < cell.count; block += Lanes::c_iSearchCount)
            {
                uNear = Lanes::FindNear(disc, scratch, block);
                pEnd += Lanes::Append(pEnd, uNear, MakePair(i, block));
            }
            pDense += c_iDensePairsPerRow;
            if (pEnd > pDense) [[unlikely]]
            {
                return false;
            }
        }
        *pEnd = c_uNoPair;
        return true;
    }

    static CCellAtom& GetAtomAt(CCellScratch& scratch, std::uint32_t uBytes)
    {
        return *reinterpret_cast<CCellAtom*>(reinterpret_cast<char*>(scratch.atoms) + uBytes);
    }

    // Mask of the lanes from this one on; for masks of at most 32 lanes.
    static std::uint32_t LanesFrom(int lane) { return ~std::uint32_t{0} << lane; }

    // True if the atom is further than c_fFarthestPush from where the search has seen it, also for NaN.
    static bool IsPushedFar(const CCellAtom& atom)
    {
        const float dx = atom.x - atom.searchedX;
        const float dy = atom.y - atom.searchedY;
        return !(dx * dx + dy * dy <= c_fFarthestPush * c_fFarthestPush);
    }

    // For an atom that was pushed far, so that the search may have missed pairs with it: notes its position now, and
    // adds its pairs above uPair to the late ones. False if there is no room for them.
    __attribute__((noinline)) static bool FindAgain(const CCell& cell, CCellAtom& atom, std::uint32_t uPair,
                                                    CLatePairs& late)
    {
        CCellScratch& scratch = cell.scratch;
        const auto index = static_cast<int>(&atom - scratch.atoms);
        const CDisc oldDisc = MakeSearchDisc(cell, index, cell.minRadius);
        scratch.x[index] = atom.searchedX = atom.x;
        scratch.y[index] = atom.searchedY = atom.y;
        Lanes::MakePoints(scratch, index & ~(Lanes::c_iCount - 1), c_fPointsPerUnit, c_fFarthestPoint);
        // In the last block this has overwritten the points of the lanes after the last atom.
        FillPointsAfter(cell);
        const CDisc disc = MakeSearchDisc(cell, index, scratch.radius[index]);
        for (int block = 0; block < cell.count; block += Lanes::c_iSearchCount)
        {
            // Pairs that were near before, even for the smallest radius of the cell, have been found already.
            std::uint32_t uNear = Lanes::FindNear(disc, scratch, block) & ~Lanes::FindNear(oldDisc, scratch, block);
            for (; uNear != 0; uNear &= uNear - 1)
            {
                const int other = block + __builtin_ctz(uNear);
                const std::uint32_t uNearPair = other < index ? MakePair(other, index) : MakePair(index, other);
                const bool bToCome = other != index && other < cell.count && uNearPair > uPair;
                if (bToCome && !late.Insert(uNearPair))
                {
                    return false;
                }
            }
        }
        return true;
    }

private:
    using CDisc = typename Lanes::CDisc;

    static std::uint32_t MakePair(int i, int j)
    {
        return (static_cast<std::uint32_t>(i) << c_iPairShift | static_cast<std::uint32_t>(j)) * c_uAtomStride;
    }

    static std::int32_t PackPoint(std::int32_t x, std::int32_t y)
    {
        return static_cast<std::int32_t>(static_cast<std::uint32_t>(y) << 16 |
                                         (static_cast<std::uint32_t>(x) & 0xFFFFU));
    }

    // Puts the lanes after the last atom out of reach, up to the end of any block that the search looks at.
    static void FillPointsAfter(const CCell& cell)
    {
        for (int lane = 0; lane < Lanes::c_iSearchCount; lane += Lanes::c_iCount)
        {
            Lanes::Fill(cell.scratch.points + cell.count + lane, PackPoint(c_iNowhere, c_iNowhere));
        }
    }

    // The disc to search around an atom of that radius. Its own radius is radius + largest radius of the cell + margin,
    // in points.
    static CDisc MakeSearchDisc(const CCell& cell, int index, float radius)
    {
        const CCellScratch& scratch = cell.scratch;
        const float units = radius + cell.maxRadius + c_fSearchMargin;
        const auto points = static_cast<std::int32_t>(units * c_fPointsPerUnit);
        return Lanes::MakeDisc(scratch.points[index], points * points);
    }
};
