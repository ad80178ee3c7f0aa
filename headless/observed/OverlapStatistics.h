#pragma once

#include "classes/core/CSize.h"

#include <cstdint>
#include <functional>

class CAtoms;

// Overlaps up to this do not count, world units: ten times what separating two atoms may leave.
constexpr double c_dCountedOverlap = 0.01;

// How far atoms overlap. An overlap is the sum of the radii minus the distance of the centres.
struct COverlapStatistics
{
    std::uint64_t pairs{}; // that overlap by more than c_dCountedOverlap
    double largest{};      // largest overlap of a pair, world units; 0 without overlaps
    bool bComplete{true};  // false: counting stopped early, and both are lower bounds
};

// Asked again and again while overlaps are counted, with the number of atoms whose neighbours are done; false ends the
// count.
using CMayGoOn = std::function<bool(std::uint64_t uAtomsDone)>;

// Between two questions to CMayGoOn at most so many pairs are tested, and the neighbours of one atom more: some
// milliseconds.
constexpr std::uint64_t c_uPairsBetweenQuestions = 1'000'000;

// Tests only pairs of neighbouring atoms, which a grid of its own finds. Computed in double precision. Thousands of
// atoms on top of each other (all started at one point, and not yet apart) have so many pairs that testing them all can
// take minutes.
COverlapStatistics ComputeOverlapStatistics(const CAtoms& atoms, const CSize<int>& world, const CMayGoOn& mayGoOn);

// The number of atoms that lie partly or wholly outside the world, or whose position is NaN.
std::uint32_t CountAtomsOutside(const CAtoms& atoms, const CSize<int>& world);
