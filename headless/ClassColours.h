#pragma once

#include "classes/core/CColour.h"
#include "view/ColourRules.h"

#include <array>

// The colours of the three classes.
using CClassColours = std::array<ColourRef, c_uColourClassCount>;
