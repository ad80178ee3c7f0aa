#include "simulation/CCellLists.h"

#include <algorithm>
#include <array>
#include <bit>
#include <utility>

namespace
{

// The list that an entry goes to is prefetched this many entries before: about as long as it takes to fetch a cache
// line from memory. (At a million atoms moving and entering take 15 % longer with 24, and 4 % with 320.)
constexpr std::size_t c_uFillAhead = 160;

constexpr std::size_t c_uMostEntries = 1 + c_iNeighbourCount; // of an atom

// Atoms that are counted at a time. They get room for the most entries, although few have more than two.
constexpr std::size_t c_uCountBlock = 2048;

// Notes the cells of some atoms (see CCellLists::CNotes); returns the end. Most atoms have one entry or two, so the
// first neighbour takes no branch that could be mispredicted. May write one note after the end.
std::uint32_t* NoteCells(std::span<const std::uint32_t> places, const CGridGeometry& geometry, std::uint32_t* pEnd)
{
    constexpr std::uint32_t c_uNoNeighbour = 1U << c_iNeighbourCount;
    std::array<std::uint32_t, c_uMostEntries> steps{};
    // A negative step wraps around to the right index.
    std::copy(geometry.neighbourSteps.begin(), geometry.neighbourSteps.end(), steps.begin());
    for (const std::uint32_t uPlace : places)
    {
        const std::uint32_t uCell = GetPlaceCell(uPlace);
        std::uint32_t uLeft = GetPlaceNeighbours(uPlace);
        *pEnd++ = uCell * 2 + 1;
        const auto getNote = [&] {
            return (uCell + steps[static_cast<std::size_t>(std::countr_zero(uLeft | c_uNoNeighbour))]) * 2;
        };
        *pEnd = getNote();
        pEnd += uLeft != 0 ? 1 : 0;
        uLeft &= uLeft - 1;
        for (; uLeft != 0; uLeft &= uLeft - 1)
        {
            *pEnd++ = getNote();
        }
    }
    return pEnd;
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
    if (m_Notes.size() < uChunks)
    {
        m_Notes.resize(uChunks);
    }
    for (CNotes& notes : m_Notes)
    {
        notes.uCounted = notes.uFilled = notes.uAtomsLeft = 0;
    }
    m_uChunks = uChunks;
    std::fill_n(m_Cursors.begin(), uCursors, 0U);
    std::fill(m_Ends.begin(), m_Ends.end(), 0U);
}

std::uint32_t* CCellLists::GetCursors(std::size_t uChunk)
{
    return uChunk + 1 < m_uChunks ? m_Cursors.data() + uChunk * m_uCells : m_Ends.data() + 1;
}

std::uint32_t* CCellLists::CNotes::MakeRoom(std::size_t uAtoms)
{
    const std::size_t uNeeded = uCounted + uAtoms * c_uMostEntries + 1;
    if (cells.size() < uNeeded)
    {
        cells.reserve(uNeeded + uNeeded / 4); // otherwise the vector doubles its size
        cells.resize(cells.capacity());
    }
    return cells.data() + uCounted;
}

// The notes of the next atoms to be filled.
std::span<const std::uint32_t> CCellLists::CNotes::Take(std::size_t uAtoms)
{
    std::size_t uEnd = uCounted;
    if (uAtoms < uAtomsLeft)
    {
        std::size_t uFirsts = 0;
        for (uEnd = uFilled; uFirsts + (cells[uEnd] & 1U) <= uAtoms; ++uEnd)
        {
            uFirsts += cells[uEnd] & 1U;
        }
    }
    uAtomsLeft -= uAtoms;
    const std::size_t uFirst = std::exchange(uFilled, uEnd);
    return std::span(cells).subspan(uFirst, uEnd - uFirst);
}

void CCellLists::Count(std::size_t uChunk, std::span<const std::uint32_t> places, const CGridGeometry& geometry)
{
    CNotes& notes = m_Notes[uChunk];
    std::uint32_t* const pCounts = GetCursors(uChunk);
    while (!places.empty())
    {
        const std::span block = places.first(std::min(places.size(), c_uCountBlock));
        std::uint32_t* const pFirst = notes.MakeRoom(block.size());
        const std::span added(pFirst, NoteCells(block, geometry, pFirst));
        for (const std::uint32_t uNote : added)
        {
            ++pCounts[uNote / 2];
        }
        notes.uCounted += added.size();
        notes.uAtomsLeft += block.size();
        places = places.subspan(block.size());
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

void CCellLists::Fill(std::size_t uChunk, const CAtomRun& atoms)
{
    std::uint32_t* const pCursors = GetCursors(uChunk);
    CAtom** const ppEntries = m_Entries.data();
    const std::span<const std::uint32_t> notes = m_Notes[uChunk].Take(atoms.uCount);
    CAtom* pNext = atoms.pFirst;
    const auto enter = [&](std::uint32_t uNote) {
        pNext += uNote % 2;
        ppEntries[pCursors[uNote / 2]++] = pNext - 1;
    };
    const std::size_t uAhead = std::min(notes.size(), c_uFillAhead);
    for (std::size_t i = 0; i < notes.size() - uAhead; ++i)
    {
        __builtin_prefetch(&ppEntries[pCursors[notes[i + uAhead] / 2]], 1);
        enter(notes[i]);
    }
    for (const std::uint32_t uNote : notes.last(uAhead))
    {
        enter(uNote);
    }
}
