#pragma once

#include "classes/core/CRandom.h"
#include "simulation/CAtom.h"
#include "simulation/CSimulationKernels.h"

#include <cstdint>
#include <span>

// The pair tests of one cell that holds these atoms in this order, in two forms that must give the same bits. Both
// return the number of collisions.

// Pair by pair, as the rule says.
std::uint32_t CollideCell_Plainly(std::span<CAtom> atoms, CRandom& random);

// As the program does. At most c_iMaxTestedAtomsPerCell atoms.
std::uint32_t CollideCell_ByKernel(std::span<CAtom> atoms, const CSimulationKernels& kernels, CRandom& random);
