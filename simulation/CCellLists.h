#pragma once

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
class CCellLists
{
public:
    // Sets the number of cells; all lists are empty then. Throws std::bad_alloc and keeps the old number.
    void Resize(std::size_t uCells);

    // The steps of a sort, in this order. Start and MakeRoom are for one thread, and throw std::bad_alloc. Count and
    // Fill may run at the same time for different chunks.

    void Start(std::size_t uChunks);

    // Adds places (see CGridGeometry::Locate) of atoms to the counts of a chunk.
    void Count(std::size_t uChunk, std::span<const std::uint32_t> places, const CGridGeometry& geometry);

    void MakeRoom();

    // Enters the atoms that have these places, in order. Per chunk, all places that were counted must come in order.
    void Fill(std::size_t uChunk, std::span<const std::uint32_t> places, CAtom* pFirst, const CGridGeometry& geometry);

    // The atoms of a cell in order.
    std::span<CAtom* const> Get(std::size_t uCell) const
    {
        return {m_Entries.data() + m_Ends[uCell], m_Ends[uCell + 1] - m_Ends[uCell]};
    }

private:
    std::uint32_t* GetCursors(std::size_t uChunk);

    std::size_t m_uCells = 0;
    std::size_t m_uChunks = 1;
    // The list of cell c is m_Ends[c]..m_Ends[c + 1] - 1 of m_Entries.
    std::vector<std::uint32_t> m_Ends;
    // For each chunk but the last, counts of its entries per cell; then where its next entry goes. m_Ends[c + 1] is the
    // same for the last chunk: when that is full, the list ends there.
    std::vector<std::uint32_t> m_Cursors;
    std::vector<CAtom*> m_Entries; // only grows
};
