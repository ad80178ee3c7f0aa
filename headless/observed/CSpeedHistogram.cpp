#include "headless/observed/CSpeedHistogram.h"

#include "simulation/CAtoms.h"

#include <algorithm>
#include <numeric>

CSpeedHistogram::CSpeedHistogram(std::size_t uBins, double range) : m_dRange(range), m_Counts(uBins) {}

void CSpeedHistogram::Add(double speed)
{
    if (!(speed < m_dRange))
    {
        ++m_uFaster;
        return;
    }
    const std::size_t uBins = m_Counts.size();
    auto uBin = std::min(static_cast<std::size_t>(speed / m_dRange * static_cast<double>(uBins)), uBins - 1);
    // The division is rounded. The edges decide, for they are what the reader of the counts sees.
    while (uBin > 0 && speed < GetEdge(uBin))
    {
        --uBin;
    }
    while (uBin + 1 < uBins && speed >= GetEdge(uBin + 1))
    {
        ++uBin;
    }
    ++m_Counts[uBin];
}

void CSpeedHistogram::Add(const CAtoms& atoms)
{
    for (std::int32_t index = 0; index < atoms.GetCount(); ++index)
    {
        Add(static_cast<double>(atoms[index].speed));
    }
}

double CSpeedHistogram::GetEdge(std::size_t uBin) const
{
    return m_dRange * static_cast<double>(uBin) / static_cast<double>(m_Counts.size());
}

std::uint64_t CSpeedHistogram::GetTotal() const
{
    return std::accumulate(m_Counts.begin(), m_Counts.end(), m_uFaster);
}

double CSpeedHistogram::GetDensity(std::size_t uBin) const
{
    const std::uint64_t uTotal = GetTotal();
    const double width = m_dRange / static_cast<double>(m_Counts.size());
    return uTotal == 0 ? 0.0 : static_cast<double>(m_Counts[uBin]) / (static_cast<double>(uTotal) * width);
}
