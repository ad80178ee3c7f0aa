#pragma once

#include <cstdint>

// Microseconds to wait after a pass that took passMs milliseconds, so that at most 60 passes per second begin. 0 if the
// pass took the whole period or more, if passMs is NaN, and if it is not above 0 (too short for the clock).
std::int64_t GetFrameCapWait(float passMs);
