#pragma once

#include "simulation/CAtoms.h"

#include <span>

struct CSimulationKernels;

// Minimum, maximum, total and average of sqrt(vx * vx + vy * vy) over all atoms, in world units per iteration. The
// total is added up in array order in single precision; another order would change its bits. All zero for an empty set.
void ComputeVelocityStatistics(CAtoms& atoms);

// The steps of it, for several threads.

// The smallest and the largest of some speeds. NaN is neither, except that a NaN as the speed of the first atom of the
// world stays both.
struct CSpeedRange
{
    float min;
    float max;

    // Starts with the speed of the first atom of the world.
    static CSpeedRange Start(const CAtoms& atoms);

    void Include(std::span<const float> speeds);
    void Include(const CSpeedRange& other);
};

// Writes the speeds of uFirst, uFirst + 1, ... to the span.
void ComputeSpeeds(const CAtoms& atoms, std::size_t uFirst, std::span<float> speeds, const CSimulationKernels& kernels);

// Adds the speeds of all atoms up and stores the statistics.
void StoreStatistics(CAtoms& atoms, const CSpeedRange& range, float fTotal);
