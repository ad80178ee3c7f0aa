#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>

// The value, or the nearest end of an integer's range. For sums of pixels, which are formed wide: a settings file may
// ask for any 32-bit length, and a thumb may be dragged to any 32-bit place.
constexpr int SaturateToInt(std::int64_t value)
{
    constexpr std::int64_t c_lowest = std::numeric_limits<int>::min();
    constexpr std::int64_t c_highest = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(value, c_lowest, c_highest));
}
