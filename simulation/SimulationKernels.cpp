#include "simulation/SimulationKernels.h"

#include "classes/core/CCpuCapabilities.h"
#include "simulation/BaselineSetting.h"
#include "simulation/SimulationKernelSets.h"

#include <array>
#include <cstddef>

namespace
{

// Each set of instructions includes the ones before it.
constexpr std::array c_Kernels = {c_BaselineKernels, c_Avx2Kernels, c_Avx512Kernels};

std::size_t CountKernels(const CCpuCapabilities& capabilities)
{
    if (!capabilities.HasAvx2())
    {
        return 1;
    }
    return capabilities.HasAvx512() ? c_Kernels.size() : c_Kernels.size() - 1;
}

} // namespace

std::span<const CSimulationKernels> GetKernels(const CCpuCapabilities& capabilities)
{
    return std::span(c_Kernels).first(CountKernels(capabilities));
}

const CSimulationKernels& GetSimulationKernels()
{
    static const CSimulationKernels& kernels = GetKernels(CCpuCapabilities(IsBaselineForced())).back();
    return kernels;
}
