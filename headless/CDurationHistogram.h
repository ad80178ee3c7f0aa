#pragma once

#include <cstdint>
#include <vector>

// Counts durations so that their percentiles are known without keeping them: the memory is the same for ten and for
// ten billion of them. A duration is remembered exactly below 2,048 ns and to one part in 1,024 above.
class CDurationHistogram
{
public:
    CDurationHistogram();

    void Add(std::uint64_t uNanoSeconds);

    // The smallest duration, in nanoseconds, that at least percent (above 0 to 100) of all reach or stay below; 0
    // where there are none.
    double GetPercentile(double percent) const;

private:
    std::vector<std::uint64_t> m_Counts;
    std::uint64_t m_uCount = 0;
};
