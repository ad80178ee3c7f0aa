#include "bench/CReplay.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{

constexpr double c_dNever = std::numeric_limits<double>::max();
constexpr int c_iNone = -1;

} // namespace

CReplay::CReplay(const std::vector<double>& times, const CWavefrontRule& rule, const std::vector<double>& speeds)
    : m_Times(times), m_Rule(rule), m_Ends(times.size(), c_dNever), m_Rows(static_cast<std::size_t>(rule.rows))
{
    for (const double speed : speeds)
    {
        m_Threads.push_back({speed, 0, c_iNone});
    }
}

double CReplay::Run()
{
    const auto isEarlier = [](const CThread& a, const CThread& b) { return a.time < b.time; };
    double end = 0;
    for (std::size_t uCells = 0; uCells < m_Times.size();)
    {
        CThread& thread = *std::min_element(m_Threads.begin(), m_Threads.end(), isEarlier);
        if (FindRow(thread))
        {
            end = std::max(end, HandleCell(thread));
            ++uCells;
        }
        else
        {
            Wait(thread);
        }
    }
    return end;
}

std::size_t CReplay::GetCell(int row, int column) const
{
    return static_cast<std::size_t>(row * m_Rule.columns + column);
}

// True if the next cell of the row may begin at that time.
bool CReplay::IsReady(int row, double time)
{
    const int column = GetRow(row).begun;
    return column < m_Rule.columns && (column == 0 || m_Ends[GetCell(row, column - 1)] <= time) &&
           (row == 0 || m_Ends[GetCell(row - 1, m_Rule.GetNeeded(column) - 1)] <= time);
}

// The row of the thread, if that can go on, otherwise the first free row that can.
bool CReplay::FindRow(CThread& thread)
{
    if (thread.row != c_iNone && IsReady(thread.row, thread.time))
    {
        return true;
    }
    if (thread.row != c_iNone)
    {
        GetRow(thread.row).bTaken = false;
        thread.row = c_iNone;
    }
    for (int row = 0; row < m_Rule.rows && thread.row == c_iNone; ++row)
    {
        if (!GetRow(row).bTaken && IsReady(row, thread.time))
        {
            GetRow(row).bTaken = true;
            thread.row = row;
        }
    }
    return thread.row != c_iNone;
}

double CReplay::HandleCell(CThread& thread)
{
    const std::size_t uCell = GetCell(thread.row, GetRow(thread.row).begun++);
    thread.time += m_Times[uCell] / thread.speed;
    m_Ends[uCell] = thread.time;
    return thread.time;
}

// Until another thread has done its cell.
void CReplay::Wait(CThread& thread)
{
    double next = c_dNever;
    for (const CThread& other : m_Threads)
    {
        next = other.time > thread.time ? std::min(next, other.time) : next;
    }
    // If all others have the same time, one of them can go on.
    thread.time = next < c_dNever ? next : std::nextafter(thread.time, c_dNever);
}
