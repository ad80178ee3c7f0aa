#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

class CAtoms;

// Counts speeds (world units per iteration) in bins of equal width from 0 up to a range. A bin has its lower edge and
// not its upper one. Speeds at or beyond the range are counted beside the bins, as faster.
class CSpeedHistogram
{
public:
    // At least one bin; range is finite and above 0.
    CSpeedHistogram(std::size_t uBins, double range);

    // speed is not negative. A NaN counts as faster.
    void Add(double speed);

    // Adds the speed of every atom.
    void Add(const CAtoms& atoms);

    std::size_t GetBinCount() const { return m_Counts.size(); }
    double GetRange() const { return m_dRange; }

    // The lower edge of a bin; the number of bins gives the range, which is the upper edge of the last one.
    double GetEdge(std::size_t uBin) const;

    std::uint64_t GetCount(std::size_t uBin) const { return m_Counts[uBin]; }
    std::uint64_t GetFaster() const { return m_uFaster; }

    // All speeds that were added.
    std::uint64_t GetTotal() const;

    // An estimate of the probability density at the speeds of this bin: the share of all speeds that it holds, divided
    // by its width. 0 without speeds.
    double GetDensity(std::size_t uBin) const;

private:
    double m_dRange;
    std::vector<std::uint64_t> m_Counts;
    std::uint64_t m_uFaster = 0;
};
