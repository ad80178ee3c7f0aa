#pragma once

#include "simulation/CSimulationKernels.h"
#include "simulation/KernelSetting.h"

#include <span>

class CCpuCapabilities;

// The kernels that such a processor can run, slowest first by expectation; the baseline is always among them.
std::span<const CSimulationKernels> GetKernels(const CCpuCapabilities& capabilities);

// Those among them that the setting allows: the named ones, or all if none are named or the processor lacks them.
std::span<const CSimulationKernels> SelectKernels(std::span<const CSimulationKernels> kernels,
                                                  EnumKernelSetting eSetting);

// The kernels that this process may use; found once.
std::span<const CSimulationKernels> GetAllowedKernels();

// The last of these, for work that is too short to find the fastest.
const CSimulationKernels& GetSimulationKernels();
