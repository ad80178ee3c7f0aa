#pragma once

#include "simulation/CAtom.h"
#include "simulation/Lanes.h"

#include <cstdint>

// Computes the speeds of c_iCount atoms at a time. Each lane computes sqrt(vx * vx + vy * vy), rounded after each
// operation.
template<IsLanes Lanes>
class CSpeedKernel
{
public:
    // See CSimulationKernels::pComputeSpeeds.
    static int ComputeSpeeds(const CAtom* pAtoms, int count, float* pSpeeds)
    {
        int index = 0;
        for (; index + Lanes::c_iCount <= count; index += Lanes::c_iCount)
        {
            const auto vx = Lanes::LoadField(&pAtoms[index].vx);
            const auto vy = Lanes::LoadField(&pAtoms[index].vy);
            const auto speeds = Lanes::SquareRoot(vx * vx + vy * vy);
            __builtin_memcpy(pSpeeds + index, &speeds, sizeof speeds);
        }
        return index;
    }
};
