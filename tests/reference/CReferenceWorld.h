#pragma once

#include "classes/core/CPoint.h"
#include "classes/core/CRandom.h"
#include "classes/core/CSize.h"
#include "simulation/CAtom.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

// The simulation in its plain form, written to be obviously correct: one growing list per cell, one pair at a time,
// each rule in its order. The fast form of the program must equal it bit for bit, and the benchmarks compare with it.
// It shares only the atom record and the random generator with the program. Do not reorder its floating-point
// operations: they define the bits.
class CReferenceWorld
{
public:
    CReferenceWorld(const CSize<int>& size, std::uint64_t uSeed);

    // Makes the atoms, at random positions or all at the start point (world units).
    void Populate(int count, std::uint8_t minRadius, std::uint8_t maxRadius, std::optional<CPoint<int>> start);

    // One iteration: moves and enters all atoms, collides them, measures velocities. Returns the number of collisions.
    std::uint32_t Advance();

    // The single steps of Advance, for tests and benchmarks.
    void ClearCells();
    void MoveAndEnter();
    void Enter(CAtom& atom);
    std::uint32_t CollideAll();
    void MeasureVelocities();

    std::vector<CAtom>& GetAtoms() { return m_Atoms; }
    const std::vector<CAtom>& GetAtoms() const { return m_Atoms; }
    const std::vector<CAtom*>& GetCell(int row, int column) const;
    CRandom& GetRandom() { return m_Random; }
    int GetRows() const { return m_iRows; }
    int GetColumns() const { return m_iColumns; }
    float GetMin() const { return m_fMin; }
    float GetMax() const { return m_fMax; }
    float GetTot() const { return m_fTot; }
    float GetAvg() const { return m_fAvg; }

private:
    void Move(CAtom& atom) const;
    std::size_t GetIndex(int row, int column) const;
    void EnterInto(CAtom& atom, int row, int column);
    std::uint32_t CollideCell(const std::vector<CAtom*>& cell);

    CSize<int> m_Size;
    CRandom m_Random;
    int m_iRows = 0;
    int m_iColumns = 0;
    int m_iCellWidth = 0;
    int m_iCellHeight = 0;
    std::vector<std::vector<CAtom*>> m_Cells;
    std::vector<CAtom> m_Atoms;
    float m_fMin = 0;
    float m_fMax = 0;
    float m_fTot = 0;
    float m_fAvg = 0;
};

// The plain form of HandleAtomCollision.
void ReferenceCollision(CAtom& a, CAtom& b, CRandom& random);
