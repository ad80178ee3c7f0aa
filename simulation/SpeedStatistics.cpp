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

constexpr std::size_t c_uLanes = 8; // two vectors of the baseline: each waits for its last operation

using Floats = float __attribute__((vector_size(sizeof(float) * c_uLanes)));

float GetSpeed(const CAtom& atom)
{
    return std::sqrt(atom.vx * atom.vx + atom.vy * atom.vy);
}

} // namespace

CSpeedRange CSpeedRange::Start(const CAtoms& atoms)
{
    const float fSpeed = GetSpeed(atoms[0]);
    return {fSpeed, fSpeed};
}

void CSpeedRange::Include(std::span<const float> speeds)
{
    Floats low = Floats{} + min;
    Floats high = Floats{} + max;
    const std::size_t uWhole = speeds.size() / c_uLanes * c_uLanes;
    for (std::size_t i = 0; i < uWhole; i += c_uLanes)
    {
        Floats lanes;
        __builtin_memcpy(&lanes, &speeds[i], sizeof lanes);
        low = low > lanes ? lanes : low;
        high = lanes > high ? lanes : high;
    }
    for (std::size_t i = 0; i < c_uLanes; ++i)
    {
        Include({low[i], high[i]});
    }
    for (const float fSpeed : speeds.subspan(uWhole))
    {
        Include({fSpeed, fSpeed});
    }
}

// Comparisons with NaN are false: a NaN changes nothing, and is not replaced.

void CSpeedRange::Include(const CSpeedRange& other)
{
    min = min > other.min ? other.min : min;
    max = other.max > max ? other.max : max;
}

void ComputeSpeeds(const CAtoms& atoms, std::size_t uFirst, std::span<float> speeds, const CSimulationKernels& kernels)
{
    const CAtom* const pAtoms = atoms.GetAtoms() + uFirst;
    const int count = static_cast<int>(speeds.size());
    for (int i = kernels.pComputeSpeeds(pAtoms, count, speeds.data()); i < count; ++i)
    {
        speeds[static_cast<std::size_t>(i)] = GetSpeed(pAtoms[i]);
    }
}

void StoreStatistics(CAtoms& atoms, const CSpeedRange& range, float fTotal)
{
    atoms.SetVelocities({range.min, range.max, fTotal, fTotal / static_cast<float>(atoms.GetCount())});
}

void ComputeVelocityStatistics(CAtoms& atoms)
{
    const auto uCount = static_cast<std::size_t>(atoms.GetCount());
    if (uCount == 0)
    {
        atoms.SetVelocities({});
        return;
    }
    const CSimulationKernels& kernels = GetSimulationKernels();
    CSpeedRange range = CSpeedRange::Start(atoms);
    float fTotal = 0;
    std::array<float, c_uBlock> buffer;
    for (std::size_t uFirst = 0; uFirst < uCount; uFirst += c_uBlock)
    {
        const std::span<float> speeds = std::span(buffer).first(std::min(c_uBlock, uCount - uFirst));
        ComputeSpeeds(atoms, uFirst, speeds, kernels);
        range.Include(speeds);
        fTotal = AddInOrder(fTotal, speeds);
    }
    StoreStatistics(atoms, range, fTotal);
}
