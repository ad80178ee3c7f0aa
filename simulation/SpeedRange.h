#pragma once

// The smallest and the largest of some speeds, in world units per iteration. NaN is neither, except that a NaN as the
// speed of the first atom of the world stays both.
struct CSpeedRange
{
    float min;
    float max;
};

// Comparisons with NaN are false: a NaN changes nothing, and is not replaced. (Static, see SimulationKernelSets.h.)
static inline void Include(CSpeedRange& range, const CSpeedRange& other)
{
    range.min = range.min > other.min ? other.min : range.min;
    range.max = other.max > range.max ? other.max : range.max;
}
