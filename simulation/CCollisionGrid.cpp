#include "simulation/CCollisionGrid.h"

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
    m_Places = std::vector<std::uint32_t>(); // frees the memory (= {} would keep it): iterations do not need it
    m_bFilled = false;
}

void CCollisionGrid::Insert(CAtom& atom)
{
    if (m_Runs.empty() || m_Runs.back().pFirst + m_Runs.back().uCount != &atom)
    {
        m_Runs.push_back({&atom, 0});
    }
    m_Places.push_back(m_Geometry.Locate(atom.x, atom.y, static_cast<float>(atom.radius)));
    ++m_Runs.back().uCount;
    m_bFilled = false;
}

void CCollisionGrid::FillCells()
{
    m_Lists.Start(1);
    m_Lists.Count(0, m_Places, m_Geometry);
    m_Lists.MakeRoom();
    for (const CAtomRun& run : m_Runs)
    {
        m_Lists.Fill(0, run);
    }
    m_bFilled = true;
}
