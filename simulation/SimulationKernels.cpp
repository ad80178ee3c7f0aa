#include "simulation/SimulationKernels.h"

#include "classes/core/CCpuCapabilities.h"
#include "simulation/BaselineSetting.h"
#include "simulation/SimulationKernelSets.h"

#include <array>
#include <cstddef>

namespace
{

std::size_t CountKernels(const CCpuCapabilities& capabilities)
{
    if (!capabilities.HasAvx2())
    {
        return 1;
    }
    return capabilities.HasAvx512() ? 3 : 2;
}

} // namespace

std::span<const CSimulationKernels> GetKernels(const CCpuCapabilities& capabilities)
{
    // A processor that has one of these instruction sets also has those before it.
    static const std::array kernels = {c_BaselineKernels, c_Avx2Kernels, c_Avx512Kernels};
    return std::span(kernels).first(CountKernels(capabilities));
}

const CSimulationKernels& GetSimulationKernels()
{
    static const CSimulationKernels& kernels = GetKernels(CCpuCapabilities(IsBaselineForced())).back();
    return kernels;
}
