#pragma once

#include "classes/core/CPoint.h"
#include "classes/core/CRect.h"
#include "simulation/CAtom.h"

#include <cmath>

// Whole pixel nearest to a position, halves away from zero. Valid for |position| < 2^31.
//
// Cutting off the fraction of |p| + 1/2 is exact here: a single-precision number and 1/2 have a sum that a double holds
// without rounding, unless p is so small that the result is 0 anyway. It is Dbl_Round(p, 0) at a tenth of the time,
// and four of these are needed for each drawn atom.
inline int RoundToPixel(float fPosition)
{
    constexpr double c_dHalf = 0.5;
    const double dPosition = static_cast<double>(fPosition);
    return static_cast<int>(dPosition + std::copysign(c_dHalf, dPosition));
}

// The position itself, or the end of the range in which every corner of an atom is a whole number of pixels that an
// integer can hold. Written so that what is not a number ends at an end too.
inline float KeepInPixelRange(float fPosition)
{
    constexpr float c_fEnd = 1073741824.0F; // 2^30: far outside every view, and radii do not lead out of the integers
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
