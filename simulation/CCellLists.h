#pragma once

#include "classes/core/CLargePageAllocator.h"
#include "simulation/CAtom.h"
#include "simulation/GridGeometry.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

// Atoms that are contiguous in memory.
struct CAtomRun
{
    CAtom* pFirst;
    std::size_t uCount;
};

// The lists of all cells of a grid, contiguous in one array, made by a counting sort: count the entries of each cell,
// give each list its place, fill in the entries.
//
// Several threads can count and fill, each a chunk of the atoms. Every chunk has its own counts, and in each list its
// own part, in the order of the chunks. So a list keeps the order of the atoms whichever thread is first.
//
// Counting also notes the cell of each entry. About one atom of seven has more than one; a branch on that is often
// mispredicted, and the notes spare filling that branch.
class CCellLists
{
public:
    // Sets the number of cells; all lists are empty then. Throws std::bad_alloc and keeps the old number.
    void Resize(std::size_t uCells);

    // The steps of a sort, in this order. Start and MakeRoom are for one thread, and throw std::bad_alloc. Count and
    // Fill may run at the same time for different chunks.

    void Start(std::size_t uChunks);

    // Counts the entries of atoms that have these places (see CGridGeometry::Locate). Throws std::bad_alloc.
    void Count(std::size_t uChunk, std::span<const std::uint32_t> places, const CGridGeometry& geometry);

    void MakeRoom();

    // Enters the atoms of the chunk that were counted first and are not entered yet. They are contiguous in memory.
    void Fill(std::size_t uChunk, const CAtomRun& atoms);

    // The atoms of a cell in order.
    std::span<CAtom* const> Get(std::size_t uCell) const
    {
        return {m_Entries.data() + m_Ends[uCell], m_Ends[uCell + 1] - m_Ends[uCell]};
    }

    // The number of entries in all lists.
    std::size_t GetEntryCount() const { return m_Ends[m_uCells]; }

private:
    // Of a chunk: the cell of each entry in the order of the atoms, times two, plus one for the first entry of an atom.
    struct CNotes
    {
        CLargeVector<std::uint32_t> cells; // only grows
        std::size_t uCounted = 0;          // of these in use
        std::size_t uFilled = 0;
        std::size_t uAtomsLeft = 0; // counted, but not filled

        std::uint32_t* MakeRoom(std::size_t uAtoms);
        std::span<const std::uint32_t> Take(std::size_t uAtoms);
    };

    std::uint32_t* GetCursors(std::size_t uChunk);

    std::size_t m_uCells = 0;
    std::size_t m_uChunks = 1;
    // The list of cell c is m_Ends[c]..m_Ends[c + 1] - 1 of m_Entries.
    std::vector<std::uint32_t> m_Ends;
    // For each chunk but the last, counts of its entries per cell; then where its next entry goes. m_Ends[c + 1] is the
    // same for the last chunk: when that is full, the list ends there.
    std::vector<std::uint32_t> m_Cursors;
    CLargeVector<CAtom*> m_Entries; // only grows
    std::vector<CNotes> m_Notes;    // of each chunk; only grows
};
