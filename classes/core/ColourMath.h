#pragma once

#include "classes/core/CColour.h"

// The first colour with iPercent (0 to 100) of the second mixed in, channel by channel.
constexpr ColourRef BlendColours(ColourRef crFirst, ColourRef crSecond, int iPercent)
{
    constexpr int c_iWhole = 100;
    constexpr auto Mix = [](int iFirst, int iSecond, int iShare) {
        return static_cast<std::uint8_t>((iFirst * (c_iWhole - iShare) + iSecond * iShare + c_iWhole / 2) / c_iWhole);
    };
    return MakeColour(Mix(GetRed(crFirst), GetRed(crSecond), iPercent),
                      Mix(GetGreen(crFirst), GetGreen(crSecond), iPercent),
                      Mix(GetBlue(crFirst), GetBlue(crSecond), iPercent));
}

// The relative luminance of a colour by the sRGB standard, from 0 (black) to 1 (white).
double GetLuminance(ColourRef cr);

// The contrast ratio of two colours, from 1 (the same) to 21 (black and white).
double GetContrast(ColourRef crFirst, ColourRef crSecond);

// Black or white, whichever has the higher contrast on the colour. The contrast is never below 4.5, which small text
// needs.
ColourRef GetContrastColour(ColourRef crBackground);
