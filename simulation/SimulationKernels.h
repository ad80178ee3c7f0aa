#pragma once

#include "simulation/CSimulationKernels.h"

#include <span>

class CCpuCapabilities;

// The kernels that such a processor can run, slowest first; the baseline is always among them.
std::span<const CSimulationKernels> GetKernels(const CCpuCapabilities& capabilities);

// The fastest kernels that this process may use: the baseline if IsBaselineForced; chosen once.
const CSimulationKernels& GetSimulationKernels();
