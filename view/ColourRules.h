#pragma once

#include "classes/core/CColour.h"
#include "classes/core/CWString.h"
#include "simulation/EnumAtomColourMode.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

// One of the three colour classes of the view.
struct AtomColourSetting
{
    ColourRef cr{};           // colour of the class
    std::uint64_t reserved{}; // always zero; nothing reads it
    // Fixed mode: number of atoms in the class. Speed mode: multiple of the average speed that bounds the class
    // (classes 0 and 2 only). -1 = not given.
    double dFactor{};
};

constexpr std::size_t c_uColourClassCount = 3;

using CColourSettings = std::array<AtomColourSetting, c_uColourClassCount>;
using CFactorTexts = std::array<CWString, c_uColourClassCount>;

// Reads the three factor texts into the factors of settings and completes the one that was left out, so that the
// three classes add up to countAtoms.
// countAtoms: number of atoms; empty = there is no atom set, and percentages mean nothing.
// Returns false when a text is no number, when the mode is unknown or when not exactly two factors were given. The
//         factors that were understood are stored even then.
bool InterpretFactors(EnumAtomColourMode eMode, const CFactorTexts& texts, std::optional<std::int32_t> countAtoms,
                      CColourSettings& settings);

// Whole part of dValue, rounded towards zero. What does not fit the result becomes its nearest end; what is not a
// number becomes 0.
std::int32_t TruncateToInt32(double dValue);

// Speeds that bound the classes of Speed mode, in world units per iteration.
struct CSpeedLimits
{
    double dSlow{}; // up to and including this speed: class 0
    double dFast{}; // from this speed on, itself included: class 2
};

// The limits of one frame. The average speed is widened first, so that an atom exactly on a limit is on it here too.
constexpr CSpeedLimits GetSpeedLimits(float fAverageSpeed, const CColourSettings& settings)
{
    return CSpeedLimits{static_cast<double>(fAverageSpeed) * settings[0].dFactor,
                        static_cast<double>(fAverageSpeed) * settings[2].dFactor};
}

// Class (0..2) of an atom in Speed mode. The slow class wins where the limits overlap; a speed that is not a number
// is class 1. Without a branch: the classes of neighbours in the array are in no order.
constexpr int ClassOfSpeed(float fSpeed, const CSpeedLimits& limits)
{
    const double dSpeed = static_cast<double>(fSpeed);
    const int iNotSlow = static_cast<int>(!(dSpeed <= limits.dSlow));
    const int iFast = static_cast<int>(dSpeed >= limits.dFast);
    return iNotSlow + (iNotSlow & iFast);
}

// Class of one atom in Speed mode: fSpeed compared with multiples of fAverageSpeed.
constexpr int ClassOfAtom(float fSpeed, float fAverageSpeed, const CColourSettings& settings)
{
    return ClassOfSpeed(fSpeed, GetSpeedLimits(fAverageSpeed, settings));
}

// The runs of atoms of Fixed mode, by place in the array: [0, a) is class 0, [a, b) class 1, [b, count) class 2.
// Always 0 <= a <= b <= count.
struct CFixedRuns
{
    std::int32_t a{};
    std::int32_t b{};
    std::int32_t count{};
    bool operator==(const CFixedRuns&) const = default;
};

// The runs that the factors of settings give for count atoms, whatever the factors hold.
CFixedRuns GetFixedRuns(const CColourSettings& settings, std::int32_t count);
