#include "headless/report/RunResults.h"

#include <cmath>

double SumSpeeds(const CAtoms& atoms)
{
    double sum = 0;
    for (std::int32_t index = 0; index < atoms.GetCount(); ++index)
    {
        const auto vx = static_cast<double>(atoms[index].vx);
        const auto vy = static_cast<double>(atoms[index].vy);
        sum += std::sqrt(vx * vx + vy * vy);
    }
    return sum;
}
