#include "simulation/SimulationKernels.h"

#include "classes/core/CCpuCapabilities.h"
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

std::span<const CSimulationKernels> SelectKernels(std::span<const CSimulationKernels> kernels,
                                                  EnumKernelSetting eSetting)
{
    const auto uNumber = static_cast<std::size_t>(eSetting); // of the named ones, from 1 on
    const bool bNamed = eSetting != EnumKernelSetting::Any && uNumber <= kernels.size();
    return bNamed ? kernels.subspan(uNumber - 1, 1) : kernels;
}

std::span<const CSimulationKernels> GetAllowedKernels()
{
    static const std::span<const CSimulationKernels> kernels = [] {
        const EnumKernelSetting eSetting = GetKernelSetting();
        // Tools that know only the baseline need not see that the processor is asked.
        return SelectKernels(GetKernels(CCpuCapabilities(eSetting == EnumKernelSetting::Baseline)), eSetting);
    }();
    return kernels;
}

const CSimulationKernels& GetSimulationKernels()
{
    return GetAllowedKernels().back();
}
