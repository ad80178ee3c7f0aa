#include "classes/core/Dbl.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace
{

constexpr double c_dBase = 10.0;

/// From here on a double has no decimal places that could be rounded away; more places change nothing.
constexpr int c_iMostDigits = 400;

} // namespace

double Dbl_Round(double dValue, int iDigits)
{
    if (iDigits == 0)
        return std::round(dValue);
    // A product of tens is exact up to 10^22 and the same on every machine, which std::pow is not.
    double dScale = 1.0;
    const int iPlaces = std::abs(std::clamp(iDigits, -c_iMostDigits, c_iMostDigits));
    for (int i = 0; i < iPlaces; ++i)
        dScale *= c_dBase;
    if (iDigits < 0)
        return std::isfinite(dScale) ? std::round(dValue / dScale) * dScale : 0.0;
    const double dScaled = dValue * dScale;
    return std::isfinite(dScaled) ? std::round(dScaled) / dScale : dValue;
}
