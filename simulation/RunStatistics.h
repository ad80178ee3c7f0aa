#pragma once

#include "classes/core/CWString.h"
#include "simulation/CAtoms.h"

#include <cstdint>

// The counts of the run loop for one statistics line.
struct CRunStatistics
{
    std::uint64_t totalIterations{};       // since the start of the run
    std::uint64_t iterationsSinceReport{}; // above 0
    std::uint64_t collisionsSinceReport{};
    float timeSumMs{};              // time of the iterations since the last report, without waiting
    CVelocityStatistics velocities; // of the last iteration
    std::int32_t atomCount{};       // above 0
};

// The line for the status bar: "Iter = 120   8.40 ms = 119.05 FPS     velocity: min = ...   collided = 12.50%". FPS is
// 1000 / average milliseconds, without the frame cap. collided is the average number of collisions per iteration in
// percent of the atoms; it is above 100 if an atom collides more than once on average.
CWString FormatStatisticsLine(const CRunStatistics& statistics);
