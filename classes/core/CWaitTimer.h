#pragma once

#include "classes/core/CKernelHandle.h"

#include <cstdint>

// Waits on the monotonic clock, to about a millisecond. The usual sleep of Windows ends only at the system's timer
// tick, every 15.6 ms, which would halve a frame rate of 60 per second. On Windows this class therefore uses a
// high-resolution timer.
class CWaitTimer
{
public:
    CWaitTimer();
    ~CWaitTimer(); // NOLINT(performance-trivially-destructible): Windows has a timer to close
    CWaitTimer(const CWaitTimer&) = delete;
    CWaitTimer& operator=(const CWaitTimer&) = delete;

    // Returns when the clock has advanced by at least llMicroSeconds; returns at once for zero or less. Sleeps whole
    // milliseconds, rounded up, until the deadline.
    void WaitMicroSeconds(std::int64_t llMicroSeconds);

private:
    void SleepMilliSeconds(std::int64_t llMilliSeconds);

#ifdef _WIN32
    CKernelHandle m_hTimer;
    bool m_bTimerPeriodRaised{};
#endif
};
