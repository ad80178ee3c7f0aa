#pragma once

#include "classes/core/CPoint.h"
#include "classes/core/CRect.h"
#include "simulation/CAtom.h"

#include <cmath>

// Whole pixel nearest to a position, halves away from zero. Valid for |position| < 2^31.
//
// Truncating |p| + 1/2 is exact here: a double holds the sum of a single-precision number and 1/2 without rounding,
// unless p is so small that the result is 0 anyway. The result is that of Dbl_Round(p, 0) in a tenth of the time, and
// each drawn atom needs four of them.
inline int RoundToPixel(float fPosition)
{
    constexpr double c_dHalf = 0.5;
    const double dPosition = static_cast<double>(fPosition);
    return static_cast<int>(dPosition + std::copysign(c_dHalf, dPosition));
}

// Clamps a position to the range in which an int holds every corner of an atom. NaN gives an end of the range too.
inline float KeepInPixelRange(float fPosition)
{
    constexpr float c_fEnd = 1073741824.0F; // 2^30: far outside every view, and a radius more still fits an int
    const float fAbove = fPosition > -c_fEnd ? fPosition : -c_fEnd;
    return fAbove < c_fEnd ? fAbove : c_fEnd;
}

// Whole-pixel rectangle that encloses an atom's circle, right and bottom outside: the corners left + x -+ r and
// top + y -+ r, summed in single precision. ptWorld is the world's left top corner in view coordinates.
inline CRect GetEllipseRect(const CAtom& atom, const CPoint<int>& ptWorld)
{
    const float fX = KeepInPixelRange(static_cast<float>(ptWorld.x) + atom.x);
    const float fY = KeepInPixelRange(static_cast<float>(ptWorld.y) + atom.y);
    const float fRadius = static_cast<float>(atom.radius);
    return CRect{RoundToPixel(fX - fRadius), RoundToPixel(fY - fRadius), RoundToPixel(fX + fRadius),
                 RoundToPixel(fY + fRadius)};
}
