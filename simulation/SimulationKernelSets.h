#pragma once

#include "simulation/CSimulationKernels.h"

// The kernels of each instruction set, each in a source that is compiled for that set alone.
//
// Such a source must define no function with external linkage. Of an inline function or a template with external
// linkage the linker keeps one copy for the whole program; that could be the AVX-512 one, on a processor without
// AVX-512. So the kernels are templates over a type in an anonymous namespace, and the functions in the other headers
// that they include are static. The test SimulationKernels.ShareNoCode checks the object files.
extern const CSimulationKernels c_BaselineKernels;
extern const CSimulationKernels c_Avx2Kernels;
extern const CSimulationKernels c_Avx512Kernels;
