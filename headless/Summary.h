#pragma once

#include "headless/CDurationHistogram.h"
#include "headless/OverlapStatistics.h"
#include "headless/RunSettings.h"
#include "simulation/CAtoms.h"

#include <cstdint>
#include <string>

// What a run has found out, for the summary at its end.
struct CRunResults
{
    std::uint64_t seed{};
    std::string start; // where the atoms came from
    std::uint64_t iterations{};
    std::uint64_t collisions{};   // of all iterations
    CDurationHistogram durations; // of every iteration
    std::int32_t atoms{};
    std::uint8_t smallestRadius{}; // that there is
    std::uint8_t largestRadius{};
    CVelocityStatistics velocities; // after the last iteration
    double startSpeedSum{};         // added up in double precision, before the first iteration
    double endSpeedSum{};           // and after the last
    COverlapStatistics overlaps;
    std::uint32_t atomsOutside{};
    std::uint64_t hash{};
};

// The sum of the speeds in double precision: adding a million of them to a float would drift by itself.
double SumSpeeds(const CAtoms& atoms);

// The summary: one "name: value" a line, the names never change, so that scripts can pick theirs.
std::string FormatSummary(const CSettings& settings, const CRunResults& results);
