#pragma once

#include "simulation/CAtoms.h"
#include "simulation/SpeedRange.h"

#include <span>

struct CSimulationKernels;

// Minimum, maximum, total and average of sqrt(vx * vx + vy * vy) over all atoms, in world units per iteration. The
// total is added up in array order in single precision; another order would change its bits. All zero for an empty set.
void ComputeVelocityStatistics(CAtoms& atoms);

// The same with the given kernels; all kernels give the same bits.
void ComputeVelocityStatistics(CAtoms& atoms, const CSimulationKernels& kernels);

// The steps of it, for several threads.

// The range that holds the speed of the first atom alone.
CSpeedRange StartSpeedRange(const CAtoms& atoms);

// Writes the speeds of uFirst, uFirst + 1, ... to the span and includes them in the range.
void ComputeSpeeds(const CAtoms& atoms, std::size_t uFirst, std::span<float> speeds, CSpeedRange& range,
                   const CSimulationKernels& kernels);

// Adds the speeds of all atoms up and stores the statistics.
void StoreStatistics(CAtoms& atoms, const CSpeedRange& range, float fTotal);
