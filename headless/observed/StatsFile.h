#pragma once

#include "headless/observed/KineticSums.h"
#include "headless/observed/WallBounces.h"
#include "simulation/CAtoms.h"

#include <cstdint>
#include <optional>
#include <string>

// More columns of a row.
struct CObservables
{
    double energy{}; // see ComputeKineticEnergy
    CMomentum momentum;
    CBouncesOfWalls bounces{}; // since the row before
    double pressure{};         // from these bounces, see ComputePressure
};

// A row of the statistics.
struct CStatsRow
{
    std::uint64_t iteration{};  // from 1
    std::uint64_t collisions{}; // since the row before
    CVelocityStatistics velocities;
    std::optional<CObservables> observables;
};

// The statistics as CSV. Numbers with a fraction are in the shortest form that reads back to the same bits: the
// velocities to those of a float, the others to those of a double.
std::string GetStatsHeader(bool bObservables);
std::string FormatStatsRow(const CStatsRow& row);
