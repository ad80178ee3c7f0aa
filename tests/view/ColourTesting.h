#pragma once

#include "view/ColourRules.h"

// Settings of the three colours with the given factors.
inline CColourSettings MakeSettings(double d0, double d1, double d2)
{
    CColourSettings settings{};
    settings[0].dFactor = d0;
    settings[1].dFactor = d1;
    settings[2].dFactor = d2;
    return settings;
}
