#pragma once

#include "classes/core/CColour.h"
#include "settings/FactorRules.h"

#include <algorithm>
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

using CColourSettings = std::array<AtomColourSetting, c_uColourClassCount>;

// InterpretFactors for the factors of settings: an invalid factor keeps its former number.
inline bool InterpretFactors(EnumAtomColourMode eMode, const CFactors& factors, std::optional<std::int32_t> countAtoms,
                             CColourSettings& settings)
{
    CFactorValues values{settings[0].dFactor, settings[1].dFactor, settings[2].dFactor};
    const bool bSuccess = InterpretFactors(eMode, factors, countAtoms, values);
    for (std::size_t u = 0; u < c_uColourClassCount; ++u)
    {
        settings[u].dFactor = values[u];
    }
    return bSuccess;
}

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

// Class (0..2) of an atom in Speed mode. The slow class wins where the limits overlap; a NaN speed is class 1. Without
// a branch: the classes of neighbours in the array are in no order.
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

// The runs that the factors of settings give for count atoms. Any factors are allowed. A class below zero takes its
// atoms from the class beside it: 256, -128 and 128 of 256 atoms are shown as 128, 0 and 128.
inline CFixedRuns GetFixedRuns(const CColourSettings& settings, std::int32_t count)
{
    const std::int64_t iCount = std::max(count, 0);
    const std::int64_t iFirst = std::min<std::int64_t>(TruncateToInt32(settings[0].dFactor), iCount);
    const std::int64_t iBoth = std::clamp<std::int64_t>(iFirst + TruncateToInt32(settings[1].dFactor), 0, iCount);
    const std::int64_t iLimited = std::clamp<std::int64_t>(iFirst, 0, iBoth);
    return CFixedRuns{static_cast<std::int32_t>(iLimited), static_cast<std::int32_t>(iBoth),
                      static_cast<std::int32_t>(iCount)};
}
