#include "simulation/CCollisionGrid.h"

#include <algorithm>
#include <bit>
#include <utility>

namespace
{

// Calls action(cell) for the cell of a place and for each neighbour it names.
template<class Action>
void ForEachCell(std::uint32_t uPlace, const CGridGeometry& geometry, Action action)
{
    const auto cell = static_cast<int>(GetPlaceCell(uPlace));
    action(static_cast<std::size_t>(cell));
    for (std::uint32_t uLeft = GetPlaceNeighbours(uPlace); uLeft != 0; uLeft &= uLeft - 1)
    {
        const int step = geometry.neighbourSteps[static_cast<std::size_t>(std::countr_zero(uLeft))];
        action(static_cast<std::size_t>(cell + step));
    }
}

} // namespace

void CCollisionGrid::Resize(const CSize<int>& world)
{
    Clear();
    const CGridGeometry geometry = CGridGeometry::ForWorld(world);
    m_Ends.assign(static_cast<std::size_t>(geometry.rows * geometry.columns) + 1, 0);
    m_Geometry = geometry;
}

void CCollisionGrid::Clear()
{
    m_Inserted.clear();
    m_Places.clear();
    m_bFilled = false;
}

void CCollisionGrid::Insert(CAtom& atom)
{
    m_bFilled = false;
    m_Inserted.push_back(&atom);
    m_Places.push_back(m_Geometry.Locate(atom.x, atom.y, static_cast<float>(atom.radius)));
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

// Leaves in m_Ends[c + 1] the index of the first entry of cell c, and returns how many entries there are.
std::size_t CCollisionGrid::CountEntries()
{
    std::fill(m_Ends.begin(), m_Ends.end(), 0U);
    for (const std::uint32_t uPlace : m_Places)
    {
        ForEachCell(uPlace, m_Geometry, [this](std::size_t uCell) { ++m_Ends[uCell + 1]; });
    }
    std::uint32_t uTotal = 0;
    for (std::size_t uCell = 1; uCell < m_Ends.size(); ++uCell)
    {
        uTotal += std::exchange(m_Ends[uCell], uTotal);
    }
    return uTotal;
}

// Each cell's end starts at its first entry and moves on with every entry, until it is where the next cell begins.
void CCollisionGrid::FillCells()
{
    const std::size_t uEntries = CountEntries();
    if (m_Entries.size() < uEntries)
    {
        m_Entries.resize(uEntries + uEntries / 2);
    }
    for (std::size_t uAtom = 0; uAtom < m_Inserted.size(); ++uAtom)
    {
        CAtom* const pAtom = m_Inserted[uAtom];
        ForEachCell(m_Places[uAtom], m_Geometry, [&](std::size_t uCell) { m_Entries[m_Ends[uCell + 1]++] = pAtom; });
    }
    m_bFilled = true;
}
