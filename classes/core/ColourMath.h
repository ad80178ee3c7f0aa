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

// How light a colour looks, from 0 (black) to 1 (white): the relative luminance of the sRGB standard.
double GetLuminance(ColourRef cr);

// How well two colours can be told apart, from 1 (the same) to 21 (black and white).
double GetContrast(ColourRef crFirst, ColourRef crSecond);

// Black or white, whichever stands out more on the colour. It is never below 4.5, which is what small text needs.
ColourRef GetContrastColour(ColourRef crBackground);
