#include "headless/observed/CDurationHistogram.h"

#include "classes/core/Percent.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>

namespace
{

// A duration is shifted right until 11 bits are left, the highest of them set: 1,024 steps for each power of two.
constexpr int c_iKeptBits = 11;
constexpr std::uint64_t c_uSteps = 1U << (c_iKeptBits - 1);
constexpr std::uint64_t c_uExactBelow = 2 * c_uSteps;
constexpr int c_iDurationBits = 64;
constexpr std::size_t c_uBins = (c_iDurationBits - c_iKeptBits + 2) * c_uSteps;

std::size_t GetBin(std::uint64_t uNanoSeconds)
{
    const int shift = std::max(static_cast<int>(std::bit_width(uNanoSeconds)) - c_iKeptBits, 0);
    return static_cast<std::size_t>(shift) * c_uSteps + (uNanoSeconds >> shift);
}

// The middle of the durations of a bin, in nanoseconds.
double GetDuration(std::size_t uBin)
{
    if (uBin < c_uExactBelow)
    {
        return static_cast<double>(uBin);
    }
    const std::size_t uShift = uBin / c_uSteps - 1;
    const auto width = static_cast<double>(std::uint64_t{1} << uShift);
    return (static_cast<double>(uBin - uShift * c_uSteps) + 1.0 / 2) * width;
}

} // namespace

CDurationHistogram::CDurationHistogram() : m_Counts(c_uBins) {}

void CDurationHistogram::Add(std::uint64_t uNanoSeconds)
{
    ++m_Counts[GetBin(uNanoSeconds)];
    ++m_uCount;
}

double CDurationHistogram::GetPercentile(double percent) const
{
    const auto uRank = static_cast<std::uint64_t>(std::ceil(static_cast<double>(m_uCount) * percent / c_dPercent));
    std::uint64_t uSeen = 0;
    for (std::size_t uBin = 0; uBin < m_Counts.size(); ++uBin)
    {
        uSeen += m_Counts[uBin];
        if (uSeen > 0 && uSeen >= uRank)
        {
            return GetDuration(uBin);
        }
    }
    return 0;
}
