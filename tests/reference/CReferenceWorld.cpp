#include "tests/reference/CReferenceWorld.h"

#include <algorithm>
#include <cmath>

namespace
{

constexpr double c_dNominalCell = 100.0;
constexpr std::size_t c_uCrowd = 1000;
constexpr float c_fRootOfTwo = 1.41421354F;

} // namespace

CReferenceWorld::CReferenceWorld(const CSize<int>& size, std::uint64_t uSeed) : m_Size(size), m_Random(uSeed)
{
    m_iColumns = static_cast<int>(std::ceil(size.cx / c_dNominalCell));
    m_iRows = static_cast<int>(std::ceil(size.cy / c_dNominalCell));
    m_iCellWidth = static_cast<int>(std::ceil(static_cast<double>(size.cx) / m_iColumns));
    m_iCellHeight = static_cast<int>(std::ceil(static_cast<double>(size.cy) / m_iRows));
    m_Cells.resize(static_cast<std::size_t>(m_iRows) * static_cast<std::size_t>(m_iColumns));
}

void CReferenceWorld::Populate(int count, std::uint8_t minRadius, std::uint8_t maxRadius,
                               std::optional<CPoint<int>> start)
{
    const int r = maxRadius;
    m_Atoms.assign(static_cast<std::size_t>(count), CAtom{});
    for (CAtom& atom : m_Atoms)
    {
        if (start)
        {
            atom.x = static_cast<float>(std::max(r, std::min(start->x, m_Size.cx - r)));
            atom.y = static_cast<float>(std::max(r, std::min(start->y, m_Size.cy - r)));
        }
        else
        {
            atom.x = m_Random.GetRandomNumber_Float(static_cast<float>(r), static_cast<float>(m_Size.cx - r));
            atom.y = m_Random.GetRandomNumber_Float(static_cast<float>(r), static_cast<float>(m_Size.cy - r));
        }
        atom.vx = m_Random.GetRandomNumber_Float(-c_fRootOfTwo, c_fRootOfTwo);
        atom.vy = m_Random.GetRandomNumber_Float(-c_fRootOfTwo, c_fRootOfTwo);
        atom.speed = std::sqrt(atom.vx * atom.vx + atom.vy * atom.vy);
        atom.radius = m_Random.GetRandomNumber_Uint8(minRadius, maxRadius);
        Enter(atom);
    }
    MeasureVelocities();
}

std::uint32_t CReferenceWorld::Advance()
{
    ClearCells();
    MoveAndEnter();
    const std::uint32_t collisions = CollideAll();
    MeasureVelocities();
    return collisions;
}

void CReferenceWorld::ClearCells()
{
    for (std::vector<CAtom*>& cell : m_Cells)
    {
        cell.clear();
    }
}

void CReferenceWorld::MoveAndEnter()
{
    for (CAtom& atom : m_Atoms)
    {
        Move(atom);
        Enter(atom);
    }
}

void CReferenceWorld::Move(CAtom& atom) const
{
    const float r = atom.radius;
    atom.x += atom.vx;
    atom.y += atom.vy;

    const float overBottom = static_cast<float>(m_Size.cy) - (r + atom.y);
    if (atom.y - r < 0)
    {
        atom.vy = -atom.vy;
        atom.y = r - (atom.y - r);
    }
    else if (overBottom < 0)
    {
        atom.vy = -atom.vy;
        atom.y = static_cast<float>(m_Size.cy - atom.radius) + overBottom;
    }

    const float overRight = static_cast<float>(m_Size.cx) - (r + atom.x);
    if (atom.x - r < 0)
    {
        atom.vx = -atom.vx;
        atom.x = r - (atom.x - r);
    }
    else if (overRight < 0)
    {
        atom.vx = -atom.vx;
        atom.x = static_cast<float>(m_Size.cx - atom.radius) + overRight;
    }
}

// Rounds down and clamps as a float, and then converts to an integer. NaN gives 0.
static int CellNumber(float position, int cellLength, int cells)
{
    float number = std::floor(position / static_cast<float>(cellLength));
    if (std::isnan(number))
    {
        return 0;
    }
    number = std::min(number, static_cast<float>(cells - 1));
    number = std::max(number, 0.0F);
    return static_cast<int>(number);
}

void CReferenceWorld::Enter(CAtom& atom)
{
    const float r = atom.radius;
    const float x = atom.x;
    const float y = atom.y;
    const int row = CellNumber(y, m_iCellHeight, m_iRows);
    const int column = CellNumber(x, m_iCellWidth, m_iColumns);
    const auto top = static_cast<float>(row * m_iCellHeight);
    const auto bottom = static_cast<float>((row + 1) * m_iCellHeight);
    const auto left = static_cast<float>(column * m_iCellWidth);
    const auto right = static_cast<float>((column + 1) * m_iCellWidth);

    EnterInto(atom, row, column);
    if (top >= y - r)
    {
        EnterInto(atom, row - 1, column);
    }
    if (r * r >= (right - x) * (right - x) + (top - y) * (top - y))
    {
        EnterInto(atom, row - 1, column + 1);
    }
    if (r + x >= right)
    {
        EnterInto(atom, row, column + 1);
    }
    if (r * r >= (right - x) * (right - x) + (bottom - y) * (bottom - y))
    {
        EnterInto(atom, row + 1, column + 1);
    }
    if (r + y >= bottom)
    {
        EnterInto(atom, row + 1, column);
    }
    if (r * r >= (left - x) * (left - x) + (bottom - y) * (bottom - y))
    {
        EnterInto(atom, row + 1, column - 1);
    }
    if (left >= x - r)
    {
        EnterInto(atom, row, column - 1);
    }
    if (r * r >= (left - x) * (left - x) + (top - y) * (top - y))
    {
        EnterInto(atom, row - 1, column - 1);
    }
}

std::size_t CReferenceWorld::GetIndex(int row, int column) const
{
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(m_iColumns) + static_cast<std::size_t>(column);
}

// Skips cells outside the grid.
void CReferenceWorld::EnterInto(CAtom& atom, int row, int column)
{
    if (row >= 0 && row < m_iRows && column >= 0 && column < m_iColumns)
    {
        m_Cells[GetIndex(row, column)].push_back(&atom);
    }
}

const std::vector<CAtom*>& CReferenceWorld::GetCell(int row, int column) const
{
    return m_Cells[GetIndex(row, column)];
}

std::uint32_t CReferenceWorld::CollideAll()
{
    std::uint32_t collisions = 0;
    for (const std::vector<CAtom*>& cell : m_Cells)
    {
        collisions += CollideCell(cell);
    }
    return collisions;
}

std::uint32_t CReferenceWorld::CollideCell(const std::vector<CAtom*>& cell)
{
    const std::size_t n = std::min(cell.size(), c_uCrowd);
    std::uint32_t collisions = 0;
    for (std::size_t i = 0; i < n; ++i)
    {
        for (std::size_t j = i + 1; j < n; ++j)
        {
            CAtom& a = *cell[i];
            CAtom& b = *cell[j];
            const auto s = static_cast<float>(a.radius + b.radius);
            if ((a.y - b.y) * (a.y - b.y) + (a.x - b.x) * (a.x - b.x) <= s * s)
            {
                ReferenceCollision(a, b, m_Random);
                ++collisions;
            }
        }
    }
    return collisions;
}

void CReferenceWorld::MeasureVelocities()
{
    for (std::size_t i = 0; i < m_Atoms.size(); ++i)
    {
        const CAtom& atom = m_Atoms[i];
        const float s = std::sqrt(atom.vx * atom.vx + atom.vy * atom.vy);
        if (i == 0)
        {
            m_fMin = s;
            m_fMax = s;
            m_fTot = s;
        }
        else
        {
            m_fTot += s;
            if (m_fMin > s)
            {
                m_fMin = s;
            }
            else if (s > m_fMax)
            {
                m_fMax = s;
            }
        }
    }
    m_fAvg = m_fTot / static_cast<float>(m_Atoms.size());
}
