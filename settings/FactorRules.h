#pragma once

#include "settings/CSettings.h"

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

// What the three colour factors may be, and which numbers they stand for.

enum class EnumFactorError : std::uint8_t
{
    Invalid,               // not a number, or one below zero
    PercentageInSpeedMode, // only fixed mode knows "50%"
    NotExactlyTwoSet
};

struct CFactorError
{
    EnumFactorError eError{};
    std::size_t uFactor{}; // 0..2; 0 where the number of factors is wrong

    bool operator==(const CFactorError&) const = default;
};

// Checks the factors as typed. Returns the errors in the order of the factors; none if all is well. Exactly two must be
// set, which is only complained about where each of them is good. A factor is a number not below zero; a percentage
// only in fixed mode.
std::vector<CFactorError> CheckFactors(const CFactors& factors, EnumAtomColourMode eMode);

// The numbers of the three factors. Fixed mode: atoms of each colour. Speed mode: multiples of the average speed.
using CFactorValues = std::array<double, c_uColourClassCount>;

// Turns the factors into numbers and completes the one that was left out, so that in fixed mode the three of them add
// up to countAtoms.
// countAtoms: number of atoms; empty = there is no atom set, and percentages mean nothing.
// Returns false when a factor is no number, when the mode is unknown or when not exactly two were given. The factors
//         that were understood are stored even then; -1 = not given.
bool InterpretFactors(EnumAtomColourMode eMode, const CFactors& factors, std::optional<std::int32_t> countAtoms,
                      CFactorValues& values);

// The whole part of dValue, rounded towards zero. What does not fit saturates; NaN gives 0.
std::int32_t TruncateToInt32(double dValue);
