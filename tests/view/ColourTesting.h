#pragma once

#include "view/ColourRules.h"

// The settings of the three colours with these factors.
inline CColourSettings MakeSettings(double d0, double d1, double d2)
{
    CColourSettings settings{};
    settings[0].dFactor = d0;
    settings[1].dFactor = d1;
    settings[2].dFactor = d2;
    return settings;
}
