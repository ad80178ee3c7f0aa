#include "simulation/CCellLists.h"

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

void CCellLists::Resize(std::size_t uCells)
{
    m_Ends.assign(uCells + 1, 0);
    m_uCells = uCells;
}

void CCellLists::Start(std::size_t uChunks)
{
    const std::size_t uCursors = (uChunks - 1) * m_uCells;
    if (m_Cursors.size() < uCursors)
    {
        m_Cursors.resize(uCursors);
    }
    m_uChunks = uChunks;
    std::fill_n(m_Cursors.begin(), uCursors, 0U);
    std::fill(m_Ends.begin(), m_Ends.end(), 0U);
}

std::uint32_t* CCellLists::GetCursors(std::size_t uChunk)
{
    return uChunk + 1 < m_uChunks ? m_Cursors.data() + uChunk * m_uCells : m_Ends.data() + 1;
}

void CCellLists::Count(std::size_t uChunk, std::span<const std::uint32_t> places, const CGridGeometry& geometry)
{
    std::uint32_t* const pCounts = GetCursors(uChunk);
    for (const std::uint32_t uPlace : places)
    {
        ForEachCell(uPlace, geometry, [=](std::size_t uCell) { ++pCounts[uCell]; });
    }
}

void CCellLists::MakeRoom()
{
    std::uint32_t uTotal = 0;
    std::uint32_t* const pLast = GetCursors(m_uChunks - 1);
    for (std::size_t uCell = 0; uCell < m_uCells; ++uCell)
    {
        for (std::size_t uIndex = uCell; uIndex < (m_uChunks - 1) * m_uCells; uIndex += m_uCells)
        {
            uTotal += std::exchange(m_Cursors[uIndex], uTotal);
        }
        uTotal += std::exchange(pLast[uCell], uTotal);
    }
    if (m_Entries.size() < uTotal)
    {
        // Half as many again, because the number of entries varies a little from one iteration to the next.
        m_Entries.resize(uTotal + uTotal / 2);
    }
}

void CCellLists::Fill(std::size_t uChunk, std::span<const std::uint32_t> places, CAtom* pFirst,
                      const CGridGeometry& geometry)
{
    std::uint32_t* const pCursors = GetCursors(uChunk);
    CAtom** const ppEntries = m_Entries.data();
    const std::uint32_t* pPlace = places.data();
    const std::uint32_t* const pEnd = pPlace + places.size();
    const std::uint32_t* const pLastAhead = pEnd - std::min(places.size(), c_uFillAhead);
    for (CAtom* pAtom = pFirst; pPlace < pEnd; ++pAtom)
    {
        if (pPlace < pLastAhead)
        {
            __builtin_prefetch(&ppEntries[pCursors[GetPlaceCell(pPlace[c_uFillAhead])]], 1);
        }
        ForEachCell(*pPlace++, geometry, [=](std::size_t uCell) { ppEntries[pCursors[uCell]++] = pAtom; });
    }
}
