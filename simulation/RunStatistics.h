#pragma once

#include "classes/core/CWString.h"
#include "simulation/CAtoms.h"

#include <cstdint>

// What the run loop has counted, for one line of text.
struct CRunStatistics
{
    std::uint64_t totalIterations{};       // since the start of the run
    std::uint64_t iterationsSinceReport{}; // above 0 when a line is made
    std::uint64_t collisionsSinceReport{};
    float timeSumMs{};              // measured time of the iterations since the last report, without waiting
    CVelocityStatistics velocities; // of the last iteration
    std::int32_t atomCount{};       // above 0
};

// The line for the status bar: "Iter = 120   8.40 ms = 119.05 FPS     velocity: min = ...   collided = 12.50%". FPS is
// what the work alone would allow; collided is the average number of collisions per iteration in percent of the atoms
// (above 100 where each collides more than once).
CWString FormatStatisticsLine(const CRunStatistics& statistics);
