#pragma once

#include "headless/COptions.h"

#include <cstdint>
#include <string>
#include <string_view>

// Reads the values of options. Each throws CUsageError naming the option, the value and what is allowed.

// A whole number from uLow to uHigh.
std::uint64_t ParseNumberOption(const std::string& sOption, const std::string& sText, std::uint64_t uLow,
                                std::uint64_t uHigh);

// "X,Y", two whole numbers.
CPoint<int> ParsePointOption(const std::string& sOption, const std::string& sText);

// "RRGGBB", six hexadecimal digits.
ColourRef ParseColourOption(const std::string& sOption, std::string_view sText);

// Three of those, with commas.
CClassColours ParseColoursOption(const std::string& sOption, const std::string& sText);

// "A,B,C", any of them empty. What the factors mean depends on the mode and is checked with it.
CFactors ParseFactorsOption(const std::string& sOption, const std::string& sText);

// "speed" or "fixed".
EnumAtomColourMode ParseModeOption(const std::string& sOption, const std::string& sText);
