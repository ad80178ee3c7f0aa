#include "simulation/CCollisionGrid.h"

#include <algorithm>
#include <bit>
#include <utility>

namespace
{

// The list that an atom goes to is prefetched this many atoms before the atom is entered.
constexpr std::size_t c_uFillAhead = 24;

// Calls action(cell) for the cell of a place and for each neighbour that it names. (A form without a branch for the
// first neighbour, which entered the atom into a spare cell if there is none, was slower: nine of ten atoms have none.)
template<class Action>
void ForEachCell(std::uint32_t uPlace, const CGridGeometry& geometry, Action action)
{
    const std::size_t uCell = GetPlaceCell(uPlace);
    action(uCell);
    for (std::uint32_t uLeft = GetPlaceNeighbours(uPlace); uLeft != 0; uLeft &= uLeft - 1)
    {
        const int step = geometry.neighbourSteps[static_cast<std::size_t>(std::countr_zero(uLeft))];
        action(uCell + static_cast<std::size_t>(step)); // a negative step wraps around to the right index
    }
}

} // namespace

void CCollisionGrid::Resize(const CSize<int>& world)
{
    Clear();
    const CGridGeometry geometry = CGridGeometry::ForWorld(world);
    m_Ends.assign(geometry.GetCellCount() + 1, 0);
    m_Geometry = geometry;
}

void CCollisionGrid::Clear()
{
    m_Runs.clear();
    m_uInserted = 0;
    m_bFilled = false;
}

void CCollisionGrid::Insert(CAtom& atom)
{
    *InsertMany(&atom, 1) = m_Geometry.Locate(atom.x, atom.y, static_cast<float>(atom.radius));
}

std::uint32_t* CCollisionGrid::InsertMany(CAtom* pAtoms, std::size_t uCount)
{
    const std::size_t uBefore = m_uInserted;
    if (m_Places.size() < uBefore + uCount)
    {
        m_Places.resize(std::max(uBefore + uCount, 2 * uBefore));
    }
    if (!m_Runs.empty() && m_Runs.back().pFirst + m_Runs.back().uCount == pAtoms)
    {
        m_Runs.back().uCount += uCount;
    }
    else
    {
        m_Runs.push_back({pAtoms, uCount});
    }
    m_uInserted += uCount;
    m_bFilled = false;
    return m_Places.data() + uBefore;
}

std::span<CAtom* const> CCollisionGrid::GetCellAtoms(int cell)
{
    if (!m_bFilled)
    {
        FillCells();
    }
    const std::uint32_t uFirst = m_Ends[static_cast<std::size_t>(cell)];
    const std::uint32_t uEnd = m_Ends[static_cast<std::size_t>(cell) + 1];
    return {m_Entries.data() + uFirst, uEnd - uFirst};
}

// Counts the entries of each cell, sets m_Ends[c + 1] to the index of the first entry of cell c, and returns the total.
std::uint32_t CCollisionGrid::CountEntries()
{
    std::fill(m_Ends.begin(), m_Ends.end(), 0U);
    std::uint32_t* const pEnds = m_Ends.data() + 1;
    for (std::size_t uAtom = 0; uAtom < m_uInserted; ++uAtom)
    {
        ForEachCell(m_Places[uAtom], m_Geometry, [=](std::size_t uCell) { ++pEnds[uCell]; });
    }
    std::uint32_t uTotal = 0;
    for (std::size_t uCell = 1; uCell < m_Ends.size(); ++uCell)
    {
        uTotal += std::exchange(m_Ends[uCell], uTotal);
    }
    return uTotal;
}

// The second half of the counting sort: the end of each cell starts at its first entry and advances with every entry,
// until it is where the next cell begins.
void CCollisionGrid::FillCells()
{
    const std::uint32_t uEntries = CountEntries();
    if (m_Entries.size() < uEntries)
    {
        // Half as many again, because the number of entries varies a little from one iteration to the next.
        m_Entries.resize(uEntries + uEntries / 2);
    }
    std::uint32_t* const pEnds = m_Ends.data() + 1;
    CAtom** const ppEntries = m_Entries.data();
    const std::uint32_t* pPlace = m_Places.data();
    const std::uint32_t* const pLastAhead = pPlace + m_uInserted - std::min(m_uInserted, c_uFillAhead);
    for (const CRun& run : m_Runs)
    {
        for (CAtom* pAtom = run.pFirst; pAtom != run.pFirst + run.uCount; ++pAtom)
        {
            if (pPlace < pLastAhead)
            {
                __builtin_prefetch(&ppEntries[pEnds[GetPlaceCell(pPlace[c_uFillAhead])]], 1);
            }
            ForEachCell(*pPlace++, m_Geometry, [=](std::size_t uCell) { ppEntries[pEnds[uCell]++] = pAtom; });
        }
    }
    m_bFilled = true;
}
