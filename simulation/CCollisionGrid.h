#pragma once

#include "classes/core/CSize.h"
#include "simulation/CAtom.h"
#include "simulation/GridGeometry.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

// The broad phase: a uniform grid of rectangular cells over the world. An atom is entered into the cell that holds its
// centre and into every neighbouring cell that its circle reaches into, so that touching atoms share a cell.
//
// A cell's list keeps the order in which its atoms were inserted. The lists lie one behind another in one array:
// inserting only notes where an atom goes; the first reader afterwards counts and fills the lists (a counting sort).
// So nothing grows list by list, and in the steady state nothing is allocated. (One growing array per cell was the
// first layout: 10,000 cells are 10,000 places in memory to append to.)
//
// The grid does not own the atoms; what was inserted must live until the next Clear or Resize.
class CCollisionGrid
{
public:
    // Lays cells of nominally 100 x 100 over a world of that many units and empties them. Throws std::length_error for
    // a world of more than c_uMaxCells cells, std::bad_alloc; the grid then keeps its old cells, emptied.
    void Resize(const CSize<int>& world);

    // Empties every cell.
    void Clear();

    // Enters one atom where it is now.
    void Insert(CAtom& atom);

    int GetRows() const { return m_Geometry.rows; }
    int GetColumns() const { return m_Geometry.columns; }
    int GetCellWidth() const { return m_Geometry.cellWidth; }
    int GetCellHeight() const { return m_Geometry.cellHeight; }
    int GetCellCount() const { return m_Geometry.rows * m_Geometry.columns; }

    // Enters count atoms that lie one behind another, in order: the caller writes the place of each
    // (CGridGeometry::Locate) to where the result points, before anything else is done with the grid.
    std::uint32_t* InsertMany(CAtom* pAtoms, std::size_t uCount);

    const CGridGeometry& GetGeometry() const { return m_Geometry; }

    // The atoms of a cell in the order of their insertion; cell is row * columns + column.
    std::span<CAtom* const> GetCellAtoms(int cell);

private:
    // Atoms that lie one behind another in memory and were inserted in that order.
    struct CRun
    {
        CAtom* pFirst;
        std::size_t uCount;
    };

    void FillCells();
    std::uint32_t CountEntries();

    CGridGeometry m_Geometry;
    std::vector<CRun> m_Runs;            // what was inserted, in order: nearly always a single run
    std::vector<std::uint32_t> m_Places; // where each atom goes, in order; only grows
    std::size_t m_uInserted = 0;         // how many of them count
    std::vector<std::uint32_t> m_Ends;   // cell c's list is m_Ends[c]..m_Ends[c + 1] of m_Entries
    std::vector<CAtom*> m_Entries;       // the lists of all cells; only grows
    bool m_bFilled = true;
};
