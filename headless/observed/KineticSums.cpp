#include "headless/observed/KineticSums.h"

#include "simulation/CAtoms.h"

#include <cstdint>

double ComputeKineticEnergy(const CAtoms& atoms)
{
    double squares = 0;
    for (std::int32_t index = 0; index < atoms.GetCount(); ++index)
    {
        const auto vx = static_cast<double>(atoms[index].vx);
        const auto vy = static_cast<double>(atoms[index].vy);
        squares += vx * vx + vy * vy;
    }
    return atoms.GetCount() == 0 ? 0.0 : squares / 2 / atoms.GetCount();
}

CMomentum ComputeMomentum(const CAtoms& atoms)
{
    CMomentum momentum;
    for (std::int32_t index = 0; index < atoms.GetCount(); ++index)
    {
        momentum.x += static_cast<double>(atoms[index].vx);
        momentum.y += static_cast<double>(atoms[index].vy);
    }
    return momentum;
}
