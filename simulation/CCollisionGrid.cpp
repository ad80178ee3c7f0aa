#include "simulation/CCollisionGrid.h"

#include <algorithm>

void CCollisionGrid::Resize(const CSize<int>& world)
{
    Clear();
    const CGridGeometry geometry = CGridGeometry::ForWorld(world);
    m_Lists.Resize(geometry.GetCellCount());
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

void CCollisionGrid::FillCells()
{
    m_Lists.Start(1);
    m_Lists.Count(0, std::span(m_Places).first(m_uInserted), m_Geometry);
    m_Lists.MakeRoom();
    std::size_t uFirst = 0;
    for (const CAtomRun& run : m_Runs)
    {
        m_Lists.Fill(0, std::span(m_Places).subspan(uFirst, run.uCount), run.pFirst, m_Geometry);
        uFirst += run.uCount;
    }
    m_bFilled = true;
}
