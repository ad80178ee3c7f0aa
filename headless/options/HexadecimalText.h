#pragma once

#include "classes/core/CColour.h"

#include <cstdint>
#include <string>

// The option's value that names this colour: "RRGGBB", in small letters.
std::string TextOfColour(ColourRef colour);

// A hash of 64 bits as 16 hexadecimal digits.
std::string TextOfHash(std::uint64_t uHash);
