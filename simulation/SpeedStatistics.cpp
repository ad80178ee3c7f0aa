#include "simulation/SpeedStatistics.h"

#include "simulation/SimulationKernels.h"
#include "simulation/SpeedSum.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace
{

constexpr std::size_t c_uBlock = 1024; // atoms; their speeds stay in the first-level cache

float GetSpeed(const CAtom& atom)
{
    return std::sqrt(atom.vx * atom.vx + atom.vy * atom.vy);
}

} // namespace

CSpeedRange StartSpeedRange(const CAtoms& atoms)
{
    const float fSpeed = GetSpeed(atoms[0]);
    return {fSpeed, fSpeed};
}

void ComputeSpeeds(const CAtoms& atoms, std::size_t uFirst, std::span<float> speeds, CSpeedRange& range,
                   const CSimulationKernels& kernels)
{
    const CAtom* const pAtoms = atoms.GetAtoms() + uFirst;
    const int count = static_cast<int>(speeds.size());
    for (int i = kernels.pComputeSpeeds(pAtoms, count, speeds.data(), range); i < count; ++i)
    {
        const float fSpeed = GetSpeed(pAtoms[i]);
        speeds[static_cast<std::size_t>(i)] = fSpeed;
        Include(range, {fSpeed, fSpeed});
    }
}

void StoreStatistics(CAtoms& atoms, const CSpeedRange& range, float fTotal)
{
    atoms.SetVelocities({range.min, range.max, fTotal, fTotal / static_cast<float>(atoms.GetCount())});
}

void ComputeVelocityStatistics(CAtoms& atoms)
{
    ComputeVelocityStatistics(atoms, GetSimulationKernels());
}

void ComputeVelocityStatistics(CAtoms& atoms, const CSimulationKernels& kernels)
{
    const auto uCount = static_cast<std::size_t>(atoms.GetCount());
    if (uCount == 0)
    {
        atoms.SetVelocities({});
        return;
    }
    CSpeedRange range = StartSpeedRange(atoms);
    float fTotal = 0;
    std::array<float, c_uBlock> buffer;
    for (std::size_t uFirst = 0; uFirst < uCount; uFirst += c_uBlock)
    {
        const std::span<float> speeds = std::span(buffer).first(std::min(c_uBlock, uCount - uFirst));
        ComputeSpeeds(atoms, uFirst, speeds, range, kernels);
        fTotal = AddInOrder(fTotal, speeds);
    }
    StoreStatistics(atoms, range, fTotal);
}
