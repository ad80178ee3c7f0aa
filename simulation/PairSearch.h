#pragma once

#include "simulation/CellWork.h"
#include "simulation/SimulationConstants.h"

#include <cstdint>

// Finds the pairs of a cell that might touch while it is at work, for a source that has defined Lanes: so many points
// looked at at a time.
//
// Everything here is static: it is compiled once per instruction set, and the linker must not merge the copies.

// What the search adds to the distance at which two atoms touch, world units. A smaller one finds fewer pairs in vain,
// a larger one has fewer atoms pushed too far; pushes are about 0.2 on average, and rarely 1.
constexpr float c_fSearchMargin = 3.0F;

// The search works with whole numbers of that many per world unit, relative to the first atom of the cell. Numbers are
// limited to what a cell and the largest radius need; limiting brings points nearer to each other, never further
// apart.
constexpr float c_fPointsPerUnit = 16.0F;
constexpr float c_fFarthestPoint = 6000.0F;

// Where the lanes after the last atom are: out of reach of any atom.
constexpr std::int32_t c_iNowhere = 16'383;

// How far an atom may be from where the search has seen it: half the margin, less what rounding to points can hide.
constexpr float c_fFarthestPush = c_fSearchMargin / 2 - 0.1F;

// A pair names its two atoms by their distance in bytes from the first of the cell: that of i in the upper 16 bits,
// that of j in the lower ones. So pairs are ordered as their numbers are, and the atoms are found without a
// multiplication.
constexpr int c_iPairShift = 16;
constexpr std::uint32_t c_uAtomStride = sizeof(CCellAtom);
static_assert(c_iMaxTestedAtomsPerCell * c_uAtomStride < 1U << c_iPairShift);

// Is behind every pair.
constexpr std::uint32_t c_uNoPair = ~std::uint32_t{0};

static inline std::uint32_t MakePair(int i, int j)
{
    return (static_cast<std::uint32_t>(i) << c_iPairShift | static_cast<std::uint32_t>(j)) * c_uAtomStride;
}

static inline CCellAtom& GetAtomAt(CCellScratch& scratch, std::uint32_t uBytes)
{
    return *reinterpret_cast<CCellAtom*>(reinterpret_cast<char*>(scratch.atoms) + uBytes);
}

// All bits from that lane on, for a mask of at most 32 lanes.
static inline std::uint32_t LanesFrom(int lane)
{
    return ~std::uint32_t{0} << lane;
}

// Both numbers in one: x below, y above.
static inline std::int32_t PackPoint(std::int32_t x, std::int32_t y)
{
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(y) << 16 | (static_cast<std::uint32_t>(x) & 0xFFFFU));
}

// Makes the points of the noted positions.
static inline void MakePoints(const CCell& cell)
{
    CCellScratch& scratch = cell.scratch;
    scratch.originX = scratch.x[0];
    scratch.originY = scratch.y[0];
    for (int block = 0; block < cell.count; block += Lanes::c_iCount)
    {
        Lanes::MakePoints(scratch, block, c_fPointsPerUnit, c_fFarthestPoint);
    }
    Lanes::Fill(scratch.points + cell.count, PackPoint(c_iNowhere, c_iNowhere));
}

// What the search finds around an atom of that radius: everything nearer than touching the largest of the cell, plus
// the margin.
static inline Lanes::CDisc MakeSearchDisc(const CCell& cell, int index, float radius)
{
    const CCellScratch& scratch = cell.scratch;
    const float units = radius + cell.maxRadius + c_fSearchMargin;
    const auto points = static_cast<std::int32_t>(units * c_fPointsPerUnit);
    return Lanes::MakeDisc(scratch.points[index], points * points);
}

// Finds the pairs that are near, in order, with c_uNoPair behind the last. False for a dense cell.
static inline bool FindPairs(const CCell& cell)
{
    CCellScratch& scratch = cell.scratch;
    std::uint32_t* pEnd = scratch.pairs;
    const std::uint32_t* pDense = pEnd + c_iDensePairsSlack;
    for (int i = 0; i < cell.count - 1; ++i)
    {
        Prefetch(cell.next, i);
        const Lanes::CDisc disc = MakeSearchDisc(cell, i, scratch.radius[i]);
        const int firstBlock = (i + 1) & ~(Lanes::c_iCount - 1);
        std::uint32_t uNear = Lanes::FindNear(disc, scratch, firstBlock) & LanesFrom(i + 1 - firstBlock);
        pEnd += Lanes::Append(pEnd, uNear, MakePair(i, firstBlock));
        for (int block = firstBlock + Lanes::c_iCount; block < cell.count; block += Lanes::c_iCount)
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

namespace // NOLINT(cert-dcl59-cpp): compiled once per instruction set, and the linker must not merge the copies
{

// The pairs that came up after the search, in order, as far as they are still to come; c_uNoPair is behind the last.
struct CLatePairs
{
    std::uint32_t* pPairs;
    int next;
    int end;

    explicit CLatePairs(CCellScratch& scratch) : pPairs(scratch.latePairs), next(0), end(0) { pPairs[0] = c_uNoPair; }

    // Puts a pair into its place unless it is there. False if there is no room.
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

} // namespace

static inline bool IsPushedFar(const CCellAtom& atom)
{
    const float dx = atom.x - atom.searchedX;
    const float dy = atom.y - atom.searchedY;
    return !(dx * dx + dy * dy <= c_fFarthestPush * c_fFarthestPush);
}

// An atom has been pushed so far that the search may have missed pairs with it: notes where it is now and adds its
// pairs behind uPair to the late ones. False if there is no room for them.
__attribute__((noinline)) static bool FindAgain(const CCell& cell, CCellAtom& atom, std::uint32_t uPair,
                                                CLatePairs& late)
{
    CCellScratch& scratch = cell.scratch;
    const auto index = static_cast<int>(&atom - scratch.atoms);
    const Lanes::CDisc oldDisc = MakeSearchDisc(cell, index, cell.minRadius);
    scratch.x[index] = atom.searchedX = atom.x;
    scratch.y[index] = atom.searchedY = atom.y;
    Lanes::MakePoints(scratch, index & ~(Lanes::c_iCount - 1), c_fPointsPerUnit, c_fFarthestPoint);
    // In the last block that has made points of lanes without an atom too.
    Lanes::Fill(scratch.points + cell.count, PackPoint(c_iNowhere, c_iNowhere));
    const Lanes::CDisc disc = MakeSearchDisc(cell, index, scratch.radius[index]);
    for (int block = 0; block < cell.count; block += Lanes::c_iCount)
    {
        // What was near before, as seen from the smallest atom too, is among the pairs already.
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
