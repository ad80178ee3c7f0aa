#pragma once

#include <cstdint>

// How long to wait after a pass that took that many milliseconds, in microseconds, so that passes begin at most 60
// times per second. 0 for a pass that took the whole period or more, and for one too short for the clock to see.
std::int64_t GetFrameCapWait(float passMs);
