#pragma once

#include "headless/observed/CDurationHistogram.h"
#include "headless/observed/OverlapStatistics.h"
#include "simulation/CAtoms.h"

#include <cstdint>
#include <optional>
#include <string>

// The results of a run, for the summary at its end.
struct CRunResults
{
    std::uint64_t seed{};
    std::string start; // where the atoms came from
    std::uint64_t iterations{};
    std::uint64_t collisions{};   // of all iterations
    CDurationHistogram durations; // of every iteration
    std::int32_t atoms{};
    std::uint8_t smallestRadius{}; // of the atoms in the world
    std::uint8_t largestRadius{};
    CVelocityStatistics velocities;             // after the last iteration
    double startSpeedSum{};                     // before the first iteration, in double precision
    double endSpeedSum{};                       // after the last iteration
    std::optional<COverlapStatistics> overlaps; // empty if they were not counted
    std::uint32_t atomsOutside{};
    std::uint64_t hash{};
};

// The sum of the speeds in double precision: a sum of a million floats in a float would drift by rounding.
double SumSpeeds(const CAtoms& atoms);
