#pragma once

#include "simulation/AtomFields.h"
#include "simulation/CAtom.h"
#include "simulation/Lanes.h"
#include "simulation/SpeedRange.h"

#include <cstdint>

// Computes the speeds of c_iCount atoms at a time, and their range. Each lane computes sqrt(vx * vx + vy * vy), rounded
// after each operation.
template<IsLanes Lanes>
class CSpeedKernel
{
public:
    // See CSimulationKernels::pComputeSpeeds.
    static int ComputeSpeeds(const CAtom* pAtoms, int count, float* pSpeeds, CSpeedRange& range)
    {
        Floats low = Floats{} + range.min;
        Floats high = Floats{} + range.max;
        int index = 0;
        for (; index + Lanes::c_iCount <= count; index += Lanes::c_iCount)
        {
            const auto [vx, vy] = CAtomFields<Lanes>::LoadVelocities(pAtoms + index);
            const Floats speeds = Lanes::SquareRoot(vx * vx + vy * vy);
            low = Lanes::Min(speeds, low);
            high = Lanes::Max(speeds, high);
            __builtin_memcpy(pSpeeds + index, &speeds, sizeof speeds);
        }
        for (int lane = 0; lane < Lanes::c_iCount; ++lane)
        {
            Include(range, {low[lane], high[lane]});
        }
        return index;
    }

private:
    using Floats = typename Lanes::Floats;
};
