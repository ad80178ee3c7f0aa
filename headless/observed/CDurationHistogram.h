#pragma once

#include <cstdint>
#include <vector>

// Counts durations in bins, so that percentiles need no list of them: the memory is the same for ten and for ten
// billion durations. A bin is exact below 2,048 ns and right to one part in 1,024 above.
class CDurationHistogram
{
public:
    CDurationHistogram();

    void Add(std::uint64_t uNanoSeconds);

    bool IsEmpty() const { return m_uCount == 0; }

    // The smallest duration, in nanoseconds, that at least the given percentage (above 0, up to 100) of all durations
    // do not exceed; 0 when there are none.
    double GetPercentile(double percent) const;

private:
    std::vector<std::uint64_t> m_Counts;
    std::uint64_t m_uCount = 0;
};
