#pragma once

#include "simulation/CAtom.h"

#include <bit>
#include <cstdint>

inline bool IsSameFloat(float a, float b)
{
    return std::bit_cast<std::uint32_t>(a) == std::bit_cast<std::uint32_t>(b);
}

// True if all fields have equal bits, without the padding. 0 and -0 differ.
inline bool IsSameAtom(const CAtom& a, const CAtom& b)
{
    return IsSameFloat(a.x, b.x) && IsSameFloat(a.y, b.y) && IsSameFloat(a.speed, b.speed) && IsSameFloat(a.vx, b.vx) &&
           IsSameFloat(a.vy, b.vy) && a.radius == b.radius && a.reserved == b.reserved;
}
