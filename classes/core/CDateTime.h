#pragma once

#include <chrono>
#include <cstdint>

// A moment on the monotonic clock, for measuring how long something takes: setting the computer's time does not
// disturb it.
class CDateTime
{
public:
    // Now.
    CDateTime() { SetNow(); }

    void SetNow();

    // How much later this moment is than the other, below zero when it is earlier; parts of the unit are cut off.
    std::int64_t DiffInMicroSeconds(const CDateTime& earlier) const;
    std::int64_t DiffInMilliSeconds(const CDateTime& earlier) const;

private:
    std::chrono::steady_clock::time_point m_Time;
};
