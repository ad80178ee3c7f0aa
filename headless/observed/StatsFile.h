#pragma once

#include "simulation/CAtoms.h"

#include <cstdint>

struct IByteSink;

// The statistics of every iteration as CSV: iteration (from 1), collisions, and the four velocities in the shortest
// form that reads back to the same float.
void WriteStatsHeader(IByteSink& sink);
void WriteStatsRow(IByteSink& sink, std::uint64_t uIteration, std::uint32_t uCollisions,
                   const CVelocityStatistics& velocities);
