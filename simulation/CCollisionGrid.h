#pragma once

#include "classes/core/CSize.h"
#include "simulation/CAtom.h"
#include "simulation/CCellLists.h"
#include "simulation/GridGeometry.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

// The broad phase: a uniform grid of rectangular cells over the world. An atom is entered into the cell that holds its
// centre and into every neighbouring cell that its circle reaches into, so that touching atoms share a cell.
//
// The list of a cell keeps the order in which its atoms were inserted. All lists are contiguous in one array: inserting
// only notes where an atom goes; the first read afterwards counts and fills the lists (a counting sort). So the steady
// state allocates nothing. (One growing array per cell was tried first: then 10,000 cells are 10,000 places in memory
// to append to.)
//
// The grid does not own the atoms: they must live until the next Clear or Resize.
class CCollisionGrid
{
public:
    // Divides a world (size in world units) into cells of nominally 100 x 100 units, all empty. Throws
    // std::length_error for more than c_uMaxCells cells, or std::bad_alloc; the grid then keeps its old cells, emptied.
    void Resize(const CSize<int>& world);

    // Empties every cell.
    void Clear();

    // Enters one atom at its present position.
    void Insert(CAtom& atom);

    int GetRows() const { return m_Geometry.rows; }
    int GetColumns() const { return m_Geometry.columns; }
    int GetCellWidth() const { return m_Geometry.cellWidth; }
    int GetCellHeight() const { return m_Geometry.cellHeight; }
    int GetCellCount() const { return m_Geometry.rows * m_Geometry.columns; }

    const CGridGeometry& GetGeometry() const { return m_Geometry; }

    // The atoms of a cell in the order of their insertion; cell is row * columns + column. Fills the lists if an atom
    // was inserted since the last time; then it throws std::bad_alloc if they cannot grow.
    std::span<CAtom* const> GetCellAtoms(int cell)
    {
        Fill();
        return GetFilledCell(cell);
    }

    // Fills the lists unless they are. Throws std::bad_alloc.
    void Fill()
    {
        if (!m_bFilled)
        {
            FillCells();
        }
    }

    // The same for lists that are filled already; several threads may read at the same time.
    std::span<CAtom* const> GetFilledCell(int cell) const { return m_Lists.Get(static_cast<std::size_t>(cell)); }

    // The number of atoms in all filled lists; an atom counts in each list that has it.
    std::size_t GetEntryCount() const { return m_Lists.GetEntryCount(); }

    // The counting sort by itself, for an iteration, which enters all atoms anew: see CCellLists. No atom may be
    // inserted; MarkFilled ends the sort.
    CCellLists& GetLists() { return m_Lists; }
    void MarkFilled() { m_bFilled = true; }

private:
    void FillCells();

    CGridGeometry m_Geometry;
    std::vector<CAtomRun> m_Runs;        // the inserted atoms, in order: nearly always a single run
    std::vector<std::uint32_t> m_Places; // where each of them goes, in order
    CCellLists m_Lists;
    bool m_bFilled = true;
};
