#pragma once

#include "simulation/CAtom.h"
#include "simulation/CellScratch.h"
#include "simulation/CollisionResponse.h"
#include "simulation/SimulationConstants.h"

#include <cstdint>

/// The pair tests of one cell, for a source that has defined Lanes: so many floats tested at a time.
///
/// The rule is: every pair i < j of the list in that order, each at the positions that the responses before it have
/// left. Two ways lead to the same bits.
///
/// Sparse: from the positions at one moment, find all pairs nearer than touching plus a margin; then go through those
/// few one by one and test them exactly, where the atoms are by then. A pair that was not found cannot touch as long as
/// both atoms are within half the margin of where they were. When one has been pushed further, its pairs are looked for
/// again and merged in. The search never waits for a response, which is what makes it fast.
///
/// Dense: where everything touches everything, atoms are pushed further all the time. There each row is tested exactly,
/// and after each hit the rest of the row again.
///
/// Everything here is static: it is compiled once per instruction set, and the linker must not merge the copies.

/// What the search adds to the distance at which two atoms touch, world units. A smaller one finds fewer pairs in vain,
/// a larger one has fewer atoms pushed too far; pushes are about 0.2 on average, and rarely 1.
constexpr float c_fSearchMargin = 3.0F;

/// The search works with whole numbers of that many per world unit, relative to the first atom of the cell. Numbers are
/// limited to what a cell and the largest radius need; limiting brings points nearer to each other, never further
/// apart.
constexpr float c_fPointsPerUnit = 16.0F;
constexpr float c_fFarthestPoint = 6000.0F;

/// Where the lanes after the last atom are: out of reach of any atom.
constexpr std::int32_t c_iNowhere = 16'383;

/// How far an atom may be from where the search has seen it: half the margin, less what rounding to points can hide.
constexpr float c_fFarthestPush = c_fSearchMargin / 2 - 0.1F;

/// So many atoms of a cell are few: most such cells have no touching pair at all.
constexpr int c_iFewAtoms = 16;

/// A pair names its two atoms by their distance in bytes from the first of the cell: that of i in the upper 16 bits,
/// that of j in the lower ones. So pairs are ordered as their numbers are, and the atoms are found without a
/// multiplication.
constexpr int c_iPairShift = 16;
constexpr std::uint32_t c_uAtomStride = sizeof(CCellAtom);
static_assert(c_iMaxTestedAtomsPerCell * c_uAtomStride < 1U << c_iPairShift);

/// Is behind every pair.
constexpr std::uint32_t c_uNoPair = ~std::uint32_t{0};

static inline std::uint32_t MakePair(int i, int j)
{
    return (static_cast<std::uint32_t>(i) << c_iPairShift | static_cast<std::uint32_t>(j)) * c_uAtomStride;
}

static inline CCellAtom& GetAtomAt(CCellScratch& scratch, std::uint32_t uBytes)
{
    return *reinterpret_cast<CCellAtom*>(reinterpret_cast<char*>(scratch.atoms) + uBytes);
}

/// All bits from that lane on, for a mask of at most 32 lanes.
static inline std::uint32_t LanesFrom(int lane)
{
    return ~std::uint32_t{0} << lane;
}

/// Both numbers in one: x below, y above.
static inline std::int32_t PackPoint(std::int32_t x, std::int32_t y)
{
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(y) << 16 | (static_cast<std::uint32_t>(x) & 0xFFFFU));
}

/// One cell at work.
struct CCell
{
    int count;
    CCellList next;
    CCellScratch& scratch;
    CRandom& random;
    float minRadius;
    float maxRadius;
};

/// The atoms of a cell lie anywhere in memory: fetched while the cell before is at work, they are near when their turn
/// comes.
static inline void Prefetch(const CCellList& list, int index)
{
    if (index < list.count)
    {
        const CAtom* const pAtom = list.ppAtoms[index];
        __builtin_prefetch(pAtom);
        // An atom may reach over into a second cache line.
        __builtin_prefetch(&pAtom->reserved);
    }
}

__attribute__((always_inline)) static inline void PrefetchFrom(const CCellList& list, int firstIndex)
{
    for (int index = firstIndex; index < list.count; ++index)
    {
        Prefetch(list, index);
    }
}

/// Copies the atoms and notes where they are.
static inline CCell OpenCell(const CCellList& list, const CCellList& next, CCellScratch& scratch, CRandom& random)
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
    return {count, next, scratch, random, static_cast<float>(minRadius), static_cast<float>(maxRadius)};
}

static inline void CloseCell(const CCell& cell, CAtom* const* ppAtoms)
{
    for (int i = 0; i < cell.count; ++i)
    {
        WriteBack(cell.scratch.atoms[i], *ppAtoms[i]);
    }
}

/// Makes the points of the noted positions.
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

/// What the search finds around an atom of that radius: everything nearer than touching the largest of the cell, plus
/// the margin.
static inline Lanes::CDisc MakeSearchDisc(const CCell& cell, int index, float radius)
{
    const CCellScratch& scratch = cell.scratch;
    const float units = radius + cell.maxRadius + c_fSearchMargin;
    const auto points = static_cast<std::int32_t>(units * c_fPointsPerUnit);
    return Lanes::MakeDisc(scratch.points[index], points * points);
}

/// Finds the pairs that are near, in order, with c_uNoPair behind the last. False for a dense cell.
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

/// The pairs that came up after the search, in order, as far as they are still to come; c_uNoPair is behind the last.
struct CLatePairs
{
    std::uint32_t* pPairs;
    int next;
    int end;

    explicit CLatePairs(CCellScratch& scratch) : pPairs(scratch.latePairs), next(0), end(0) { pPairs[0] = c_uNoPair; }

    /// Puts a pair into its place unless it is there. False if there is no room.
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

static inline bool IsPushedFar(const CCellAtom& atom)
{
    const float dx = atom.x - atom.searchedX;
    const float dy = atom.y - atom.searchedY;
    return !(dx * dx + dy * dy <= c_fFarthestPush * c_fFarthestPush);
}

/// An atom has been pushed so far that the search may have missed pairs with it: notes where it is now and adds its
/// pairs behind uPair to the late ones. False if there is no room for them.
__attribute__((noinline)) static bool FindAgain(const CCell& cell, CCellAtom& atom, std::uint32_t uPair,
                                                CLatePairs& late)
{
    CCellScratch& scratch = cell.scratch;
    const auto index = static_cast<int>(&atom - scratch.atoms);
    const Lanes::CDisc oldDisc = MakeSearchDisc(cell, index, cell.minRadius);
    scratch.x[index] = atom.searchedX = atom.x;
    scratch.y[index] = atom.searchedY = atom.y;
    Lanes::MakePoints(scratch, index & ~(Lanes::c_iCount - 1), c_fPointsPerUnit, c_fFarthestPoint);
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

static inline bool AreTouching(float dx, float dy, float radiusSum)
{
    return dy * dy + dx * dx <= radiusSum * radiusSum;
}

/// Tests the pairs of row i from column firstColumn on, exactly and each after the one before, at the noted positions,
/// which must be those of now and are kept so.
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

/// Tests all pairs behind that one, row by row.
static inline std::uint32_t CollideRows(const CCell& cell, int row, int column)
{
    CCellScratch& scratch = cell.scratch;
    for (int i = 0; i < cell.count; ++i)
    {
        scratch.x[i] = scratch.atoms[i].x;
        scratch.y[i] = scratch.atoms[i].y;
    }
    // The lanes after the last atom touch nothing.
    Lanes::Fill(scratch.x + cell.count, __builtin_nanf(""));
    std::uint32_t uCollisions = CollideRow(cell, row, column + 1);
    for (int i = row + 1; i < cell.count - 1; ++i)
    {
        uCollisions += CollideRow(cell, i, i + 1);
    }
    return uCollisions;
}

/// The response, apart from the loop below: inlined there it would take the registers that the loop needs.
__attribute__((noinline)) static void Respond(CCellAtom& a, CCellAtom& b, CRandom& random)
{
    RespondToTouch(a, b, a.radius + b.radius, random);
}

/// Tests the pairs found, and the late ones among them, in order. Five of six do not touch, and a processor can look
/// ahead over some 500 instructions: the fewer a pair takes, the more responses are computed at the same time.
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

/// Whether any two of a few atoms touch. Where none do, none is moved, so nothing else needs to be known.
static inline bool HasTouchingPair(CAtom* const* ppAtoms, int count, CCellScratch& scratch)
{
    for (int i = 0; i < count; ++i)
    {
        scratch.x[i] = ppAtoms[i]->x;
        scratch.y[i] = ppAtoms[i]->y;
        scratch.radius[i] = static_cast<float>(ppAtoms[i]->radius);
    }
    Lanes::Fill(scratch.x + count, __builtin_nanf(""));
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

/// The rule as it stands, for a cell of so few atoms that looking ahead does not pay.
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

/// Tests all pairs of a cell's atoms, at most c_iMaxTestedAtomsPerCell of them, and returns the number of collisions.
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
