#pragma once

#include "classes/core/CSize.h"
#include "simulation/CAtom.h"
#include "simulation/GridGeometry.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

/// The broad phase: a uniform grid of rectangular cells over the world. An atom is entered into the cell that holds its
/// centre and into every neighbouring cell that its circle reaches into, so that touching atoms share a cell.
///
/// A cell's list keeps the order in which its atoms were inserted. The lists lie one behind another in one array:
/// inserting only notes where an atom goes; the first reader afterwards counts and fills the lists (a counting sort).
/// So nothing grows list by list, and in the steady state nothing is allocated. (One growing array per cell was the
/// first layout: 10,000 cells are 10,000 places in memory to append to.)
///
/// The grid does not own the atoms; what was inserted must live until the next Clear or Resize.
class CCollisionGrid
{
public:
    /// Lays cells of nominally 100 x 100 over a world of that many units and empties them. Throws std::length_error for
    /// a world of more than c_uMaxCells cells, std::bad_alloc; the grid then keeps its old cells, emptied.
    void Resize(const CSize<int>& world);

    /// Empties every cell.
    void Clear();

    /// Enters one atom where it is now.
    void Insert(CAtom& atom);

    int GetRows() const { return m_Geometry.rows; }
    int GetColumns() const { return m_Geometry.columns; }
    int GetCellWidth() const { return m_Geometry.cellWidth; }
    int GetCellHeight() const { return m_Geometry.cellHeight; }
    int GetCellCount() const { return m_Geometry.rows * m_Geometry.columns; }

    /// The atoms of a cell in the order of their insertion; cell is row * columns + column.
    std::span<CAtom* const> GetCellAtoms(int cell);

private:
    void FillCells();
    std::size_t CountEntries();

    CGridGeometry m_Geometry;
    std::vector<CAtom*> m_Inserted;      // in order of insertion
    std::vector<std::uint32_t> m_Places; // where each of them goes (see CGridGeometry::Locate)
    std::vector<std::uint32_t> m_Ends;   // cells + 1 elements: cell c's list is m_Ends[c]..m_Ends[c + 1] of m_Entries
    std::vector<CAtom*> m_Entries;       // the lists of all cells; only grows
    bool m_bFilled = true;
};
