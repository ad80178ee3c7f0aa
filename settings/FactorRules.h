#pragma once

#include "settings/CSettings.h"

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

// Which texts the three colour factors may have, and which numbers these stand for.

enum class EnumFactorError : std::uint8_t
{
    Invalid,               // not a number, or one below zero
    PercentageInSpeedMode, // only fixed mode knows "50%"
    NotExactlyTwoSet
};

struct CFactorError
{
    EnumFactorError eError{};
    std::size_t uFactor{}; // 0..2; 0 if the number of factors is wrong

    bool operator==(const CFactorError&) const = default;
};

// Checks the factors as typed. Returns the errors in the order of the factors; none if all factors are valid. A factor
// must be a number not below zero, or in fixed mode a percentage. Exactly two must be set; a wrong number of them is
// reported only if each set factor is valid.
std::vector<CFactorError> CheckFactors(const CFactors& factors, EnumAtomColourMode eMode);

// The numbers of the three factors. Fixed mode: atoms of each colour. Speed mode: multiples of the average speed.
using CFactorValues = std::array<double, c_uColourClassCount>;

// Turns the factors into numbers and computes the one that was left out. In fixed mode this makes the three of them,
// each truncated to an integer, add up to countAtoms. The computed one is below zero if the others ask for more atoms
// than there are.
// countAtoms: number of atoms; empty = there is no atom set, and in fixed mode a percentage is an error.
// Returns false if a factor is not a number, if the mode is unknown or if not exactly two factors were given. The valid
// factors are stored even then; -1 = not given.
bool InterpretFactors(EnumAtomColourMode eMode, const CFactors& factors, std::optional<std::int32_t> countAtoms,
                      CFactorValues& values);

// The whole part of dValue, rounded towards zero. Values out of range saturate; NaN gives 0.
std::int32_t TruncateToInt32(double dValue);
