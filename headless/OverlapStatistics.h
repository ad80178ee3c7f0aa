#pragma once

#include "classes/core/CSize.h"

#include <cstdint>

class CAtoms;

// Overlaps up to this do not count, world units: ten times what separating two atoms may leave.
constexpr double c_dCountedOverlap = 0.01;

// Pairs that are tested before counting stops early, after about ten seconds. Only thousands of atoms on top of each
// other (all started at one point, and not yet apart) reach this.
constexpr std::uint64_t c_uMaxLookedAtPairs = 5'000'000'000;

// How far atoms overlap. An overlap is the sum of the radii minus the distance of the centres.
struct COverlapStatistics
{
    std::uint64_t pairs{}; // that overlap by more than c_dCountedOverlap
    double largest{};      // largest overlap of a pair, world units; 0 without overlaps
    bool bComplete{true};  // false: counting stopped early, and both are lower bounds
};

// Tests only pairs of neighbouring atoms, which a grid of its own finds. Computed in double precision.
COverlapStatistics ComputeOverlapStatistics(const CAtoms& atoms, const CSize<int>& world,
                                            std::uint64_t uMaxLookedAtPairs = c_uMaxLookedAtPairs);

// The number of atoms that lie partly or wholly outside the world, or whose position is NaN.
std::uint32_t CountAtomsOutside(const CAtoms& atoms, const CSize<int>& world);
