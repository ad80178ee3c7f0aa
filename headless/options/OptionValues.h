#pragma once

#include "classes/core/CColour.h"
#include "classes/core/CPoint.h"
#include "headless/options/EnumSummaryForm.h"
#include "settings/CSettings.h"
#include "simulation/EnumAtomColourMode.h"
#include "view/ColourRules.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// Readers of option values. Each throws CUsageError naming the option, the value and the allowed values.

// A whole number from uLow to uHigh.
std::uint64_t ParseNumberOption(const std::string& sOption, const std::string& sText, std::uint64_t uLow,
                                std::uint64_t uHigh);

// The same, also written with an exponent: "1e6", "2.5e3".
std::uint64_t ParseCountOption(const std::string& sOption, const std::string& sText, std::uint64_t uLow,
                               std::uint64_t uHigh);

// "X,Y", two whole numbers.
CPoint<int> ParsePointOption(const std::string& sOption, const std::string& sText);

// The option's value that names this point.
std::string TextOfPoint(const CPoint<int>& point);

// "RRGGBB", six hexadecimal digits.
ColourRef ParseColourOption(const std::string& sOption, std::string_view sText);

// Three colours with commas between them.
CClassColours ParseColoursOption(const std::string& sOption, const std::string& sText);

// "A,B,C", each possibly empty. The factors are checked later, because their meaning depends on the mode.
CFactors ParseFactorsOption(const std::string& sOption, const std::string& sText);

// Iterations of a run, and whether its last one, whichever that is, is meant too.
struct CMoments
{
    std::vector<std::uint64_t> iterations; // rising
    bool bEnd{};
};

// Whole numbers up to uHigh, as ParseCountOption reads them, and the word "end", with commas between them.
CMoments ParseMomentsOption(const std::string& sOption, const std::string& sText, std::uint64_t uHigh);

// The speeds that ParseSpeedOption allows, world units per iteration.
constexpr double c_dLowestSpeed = 1e-9;
constexpr double c_dHighestSpeed = 1e9;
double ParseSpeedOption(const std::string& sOption, const std::string& sText);

// "speed" or "fixed".
EnumAtomColourMode ParseModeOption(const std::string& sOption, const std::string& sText);

// "json", "csv" or "text".
EnumSummaryForm ParseSummaryOption(const std::string& sOption, const std::string& sText);
