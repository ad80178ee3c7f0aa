#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>

// Saturates the value to the range of int. For sums of pixels computed in 64 bits: a settings file may contain any
// 32-bit length, and a thumb may be dragged to any 32-bit position.
constexpr int SaturateToInt(std::int64_t value)
{
    constexpr std::int64_t c_lowest = std::numeric_limits<int>::min();
    constexpr std::int64_t c_highest = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(value, c_lowest, c_highest));
}
