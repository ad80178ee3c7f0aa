#pragma once

#include "classes/core/Dbl.h"
#include "simulation/SimulationConstants.h"

#include <bit>
#include <cstdint>

// The tolerant comparisons of the collision response widen a float to double, subtract and compare. Each is monotonic:
// there is one float up to which it holds and above which it fails. So one comparison of floats with that threshold
// gives the same decision. The compiler finds each threshold by bisection with the tolerant comparison itself.

// The largest positive float for which the rule holds. The rule must hold at 0, fail at 1, and be monotonic.
template<class Rule>
constexpr float FindLargestFloat(Rule rule)
{
    std::uint32_t uHolds = 0;
    std::uint32_t uFails = std::bit_cast<std::uint32_t>(1.0F);
    while (uFails - uHolds > 1)
    {
        // Positive floats sort as their bits do.
        const std::uint32_t uMiddle = uHolds + (uFails - uHolds) / 2;
        (rule(static_cast<double>(std::bit_cast<float>(uMiddle))) ? uHolds : uFails) = uMiddle;
    }
    return std::bit_cast<float>(uHolds);
}

// Up to this overlap two atoms count as apart.
constexpr float c_fOverlapLimit =
    FindLargestFloat([](double overlap) { return !Dbl_IsBigger(overlap, c_dSeparationTolerance, c_dEpsilon); });

// Up to this distance two centres count as coincident.
constexpr float c_fCoincidenceLimit =
    FindLargestFloat([](double distance) { return Dbl_IsSmaller(distance, c_dCoincidenceDistance, c_dEpsilon); });

// Up to this speed an atom counts as at rest.
constexpr float c_fRestLimit = FindLargestFloat(
    [](double speed) { return Dbl_IsInRangeInclusive(speed, -c_dRestSpeed, c_dRestSpeed, c_dEpsilon); });
