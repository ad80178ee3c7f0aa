#pragma once

#include "classes/core/CSize.h"

#include <cstdint>

class CAtoms;

// An overlap up to this is what separating two atoms leaves, with a margin of ten; world units.
constexpr double c_dCountedOverlap = 0.01;

// Pairs of atoms that are looked at before counting is given up. Only atoms that lie on one another by the thousands
// (all started at one point, and not yet apart) come to this; some ten seconds.
constexpr std::uint64_t c_uMaxLookedAtPairs = 5'000'000'000;

// How far atoms lie on one another. An overlap is the sum of the radii minus the distance of the centres.
struct COverlapStatistics
{
    std::uint64_t pairs{}; // that overlap by more than c_dCountedOverlap
    double largest{};      // overlap of any pair, world units; 0 where none overlaps
    bool bComplete{true};  // false: counting was given up, and both are lower bounds
};

// Looks at the pairs of neighbouring atoms only, found through a grid of its own. Computed in double precision.
COverlapStatistics ComputeOverlapStatistics(const CAtoms& atoms, const CSize<int>& world,
                                            std::uint64_t uMaxLookedAtPairs = c_uMaxLookedAtPairs);

// Atoms of which a part lies outside the world, or whose position is no number.
std::uint32_t CountAtomsOutside(const CAtoms& atoms, const CSize<int>& world);
