#include "classes/core/Dbl.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace
{

constexpr double c_dBase = 10.0;

// Rounding to more places than this changes no double.
constexpr int c_iMostDigits = 400;

// To the nearest whole number, halves away from zero. Does not use std::round: one of the C libraries that we build
// with adds 0.5 and truncates, which turns the largest number below 0.5 into 1. The difference to the whole part is
// exact.
double RoundToWhole(double dValue)
{
    constexpr double dHalf = 0.5;
    const double dWhole = std::trunc(dValue);
    return std::abs(dValue - dWhole) >= dHalf ? dWhole + std::copysign(1.0, dValue) : dWhole;
}

} // namespace

double Dbl_Round(double dValue, int iDigits)
{
    if (iDigits == 0)
    {
        return RoundToWhole(dValue);
    }
    // A product of tens is exact up to 10^22 and the same on every machine, which std::pow is not.
    double dScale = 1.0;
    const int iPlaces = std::abs(std::clamp(iDigits, -c_iMostDigits, c_iMostDigits));
    for (int i = 0; i < iPlaces; ++i)
    {
        dScale *= c_dBase;
    }
    if (iDigits < 0)
    {
        return std::isfinite(dScale) ? RoundToWhole(dValue / dScale) * dScale : 0.0;
    }
    const double dScaled = dValue * dScale;
    return std::isfinite(dScaled) ? RoundToWhole(dScaled) / dScale : dValue;
}
