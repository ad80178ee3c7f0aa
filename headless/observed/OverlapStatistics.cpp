#include "headless/observed/OverlapStatistics.h"

#include "simulation/CAtoms.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <span>
#include <vector>

namespace
{

constexpr double c_dMaxCellsPerSide = 1024; // a million cells take 4 MB

// A grid whose cells are at least as wide as the largest atom: atoms that overlap lie in the same cell or in
// neighbouring ones. Atoms outside the world belong to the nearest edge cell, which never moves two of them further
// apart.
class CNeighbourGrid
{
public:
    CNeighbourGrid(const CAtoms& atoms, const CSize<int>& world)
    {
        double largest = 1;
        for (std::int32_t index = 0; index < atoms.GetCount(); ++index)
        {
            largest = std::max(largest, static_cast<double>(atoms[index].radius));
        }
        m_dSide = std::max(2 * largest, std::max(world.cx, world.cy) / c_dMaxCellsPerSide);
        m_iColumns = static_cast<int>(world.cx / m_dSide) + 1;
        m_iRows = static_cast<int>(world.cy / m_dSide) + 1;
        Sort(atoms);
    }

    int GetColumns() const { return m_iColumns; }
    int GetRows() const { return m_iRows; }

    std::span<const CAtom* const> GetCell(int column, int row) const
    {
        const std::size_t uCell = GetIndex(column, row);
        return std::span(m_Atoms).subspan(m_Starts[uCell], m_Starts[uCell + 1] - m_Starts[uCell]);
    }

private:
    std::size_t GetIndex(int column, int row) const
    {
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(m_iColumns) + static_cast<std::size_t>(column);
    }

    std::size_t GetCellOf(const CAtom& atom) const
    {
        return GetIndex(GetNumber(atom.x, m_iColumns), GetNumber(atom.y, m_iRows));
    }

    int GetNumber(float position, int count) const
    {
        const double number = static_cast<double>(position) / m_dSide;
        // NaN gives 0: it fails this comparison.
        return number > 0 ? static_cast<int>(std::min(number, static_cast<double>(count - 1))) : 0;
    }

    // A counting sort: counts the atoms of each cell, finds where its list begins, then puts each atom into its place.
    void Sort(const CAtoms& atoms)
    {
        m_Starts.assign(GetIndex(0, m_iRows) + 1, 0);
        for (std::int32_t index = 0; index < atoms.GetCount(); ++index)
        {
            ++m_Starts[GetCellOf(atoms[index])];
        }
        std::uint32_t uEnd = 0;
        for (std::uint32_t& uStart : m_Starts)
        {
            uEnd += uStart;
            uStart = uEnd;
        }
        m_Atoms.resize(uEnd);
        for (std::int32_t index = 0; index < atoms.GetCount(); ++index)
        {
            m_Atoms[--m_Starts[GetCellOf(atoms[index])]] = &atoms[index];
        }
    }

    double m_dSide{};
    int m_iColumns{};
    int m_iRows{};
    std::vector<std::uint32_t> m_Starts;
    std::vector<const CAtom*> m_Atoms;
};

class COverlapCounter
{
public:
    explicit COverlapCounter(const CMayGoOn& mayGoOn) : m_MayGoOn(mayGoOn) {}

    // Counts the overlaps of one atom with each of the others.
    void Count(const CAtom& atom, std::span<const CAtom* const> others)
    {
        for (const CAtom* const pOther : others)
        {
            Count(atom, *pOther);
        }
        m_uPairs += others.size();
    }

    // An atom has been compared with all of its neighbours. False if the count ends early.
    bool FinishAtom()
    {
        ++m_uAtomsDone;
        if (m_uPairs >= c_uPairsBetweenQuestions)
        {
            m_uPairs = 0;
            m_Statistics.bComplete = m_MayGoOn(m_uAtomsDone);
        }
        return m_Statistics.bComplete;
    }

    const COverlapStatistics& GetStatistics() const { return m_Statistics; }

private:
    void Count(const CAtom& a, const CAtom& b)
    {
        const double dx = static_cast<double>(a.x) - static_cast<double>(b.x);
        const double dy = static_cast<double>(a.y) - static_cast<double>(b.y);
        const double radiusSum = a.radius + b.radius;
        const double squared = dx * dx + dy * dy;
        if (squared < radiusSum * radiusSum)
        {
            const double overlap = radiusSum - std::sqrt(squared);
            m_Statistics.largest = std::max(m_Statistics.largest, overlap);
            m_Statistics.pairs += overlap > c_dCountedOverlap ? 1U : 0U;
        }
    }

    const CMayGoOn& m_MayGoOn;
    COverlapStatistics m_Statistics;
    std::uint64_t m_uAtomsDone = 0;
    std::uint64_t m_uPairs = 0; // since the last question
};

// The four of the eight neighbours that come after a cell, so that every pair of neighbours is visited once.
constexpr std::array<CSize<int>, 4> c_LaterNeighbours = {CSize<int>{1, 0}, {-1, 1}, {0, 1}, {1, 1}};

// False if the count ends early.
bool CountCell(const CNeighbourGrid& grid, int column, int row, COverlapCounter& counter)
{
    const std::span<const CAtom* const> cell = grid.GetCell(column, row);
    for (std::size_t u = 0; u < cell.size(); ++u)
    {
        counter.Count(*cell[u], cell.subspan(u + 1));
        for (const CSize<int>& step : c_LaterNeighbours)
        {
            const int otherColumn = column + step.cx;
            const int otherRow = row + step.cy;
            if (otherColumn >= 0 && otherColumn < grid.GetColumns() && otherRow < grid.GetRows())
            {
                counter.Count(*cell[u], grid.GetCell(otherColumn, otherRow));
            }
        }
        if (!counter.FinishAtom())
        {
            return false;
        }
    }
    return true;
}

bool IsInside(float position, std::uint8_t uRadius, int length)
{
    return position >= static_cast<float>(uRadius) && position <= static_cast<float>(length - uRadius);
}

} // namespace

COverlapStatistics ComputeOverlapStatistics(const CAtoms& atoms, const CSize<int>& world, const CMayGoOn& mayGoOn)
{
    const CNeighbourGrid grid(atoms, world);
    COverlapCounter counter(mayGoOn);
    for (int row = 0; row < grid.GetRows(); ++row)
    {
        for (int column = 0; column < grid.GetColumns(); ++column)
        {
            if (!CountCell(grid, column, row, counter))
            {
                return counter.GetStatistics();
            }
        }
    }
    return counter.GetStatistics();
}

std::uint32_t CountAtomsOutside(const CAtoms& atoms, const CSize<int>& world)
{
    std::uint32_t uOutside = 0;
    for (std::int32_t index = 0; index < atoms.GetCount(); ++index)
    {
        const CAtom& atom = atoms[index];
        const bool bInside = IsInside(atom.x, atom.radius, world.cx) && IsInside(atom.y, atom.radius, world.cy);
        uOutside += bInside ? 0U : 1U;
    }
    return uOutside;
}
