#include "classes/core/ColourMath.h"

#include <algorithm>
#include <cmath>

namespace
{
constexpr ColourRef c_crBlack = MakeColour(0, 0, 0);
constexpr ColourRef c_crWhite = MakeColour(0xFF, 0xFF, 0xFF);

// The transfer curve of sRGB: a short straight piece near black, then a power.
double ToLinear(std::uint8_t uChannel)
{
    constexpr double c_dMaxChannel = 255.0;
    constexpr double c_dStraightEnd = 0.04045;
    constexpr double c_dStraightSlope = 12.92;
    constexpr double c_dOffset = 0.055;
    constexpr double c_dPower = 2.4;
    const double dValue = uChannel / c_dMaxChannel;
    return dValue <= c_dStraightEnd ? dValue / c_dStraightSlope
                                    : std::pow((dValue + c_dOffset) / (1.0 + c_dOffset), c_dPower);
}
} // namespace

double GetLuminance(ColourRef cr)
{
    // The weight of each primary for the eye; the weights add up to 1.
    constexpr double c_dRedShare = 0.2126;
    constexpr double c_dGreenShare = 0.7152;
    constexpr double c_dBlueShare = 0.0722;
    return c_dRedShare * ToLinear(GetRed(cr)) + c_dGreenShare * ToLinear(GetGreen(cr)) +
           c_dBlueShare * ToLinear(GetBlue(cr));
}

double GetContrast(ColourRef crFirst, ColourRef crSecond)
{
    constexpr double c_dFlare = 0.05; // light that even a black screen reflects
    const auto [dDarker, dLighter] = std::minmax({GetLuminance(crFirst), GetLuminance(crSecond)});
    return (dLighter + c_dFlare) / (dDarker + c_dFlare);
}

ColourRef GetContrastColour(ColourRef crBackground)
{
    return GetContrast(crBackground, c_crBlack) >= GetContrast(crBackground, c_crWhite) ? c_crBlack : c_crWhite;
}
