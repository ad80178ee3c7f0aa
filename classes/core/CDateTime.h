#pragma once

#include <chrono>
#include <cstdint>

// A moment on the monotonic clock, for measuring durations. A change of the computer's time does not disturb it.
class CDateTime
{
public:
    // Now.
    CDateTime() : m_Time(std::chrono::steady_clock::now()) {}

    // A moment that is already known.
    explicit CDateTime(std::chrono::steady_clock::time_point time) : m_Time(time) {}

    // The time from the other moment to this one, negative if this one is earlier. Truncated to whole units.
    std::int64_t DiffInMicroSeconds(const CDateTime& earlier) const;
    std::int64_t DiffInMilliSeconds(const CDateTime& earlier) const;

private:
    std::chrono::steady_clock::time_point m_Time;
};
