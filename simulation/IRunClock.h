#pragma once

#include "classes/core/CDateTime.h"

#include <cstdint>

// The time of the run loop. A test gives the loop times of its own; CRunClock is the real one.
struct IRunClock
{
    virtual ~IRunClock() = default;

    virtual CDateTime GetNow() = 0;

    // Returns when that many microseconds have passed; at once for zero or less.
    virtual void WaitMicroSeconds(std::int64_t llMicroSeconds) = 0;
};
