#pragma once

#include "classes/core/CSize.h"
#include "simulation/CHelperPool.h"
#include "simulation/CWavefront.h"
#include "simulation/IterationSteps.h"

#include <cstddef>
#include <cstdint>
#include <vector>

class CRandom;

// An iteration on several threads: the one that calls, and helpers that end with this object. It gives the same bits as
// AdvanceOneIteration, because
// - atoms move independently of each other,
// - the list of a cell keeps the order of the array (CCellLists),
// - a cell waits for those cells that may share an atom with it, and for all earlier ones before it draws random
// numbers
//   (WavefrontRule.h),
// - the speeds are computed in any order and then added up in that of the array.
class CParallelIteration
{
public:
    // Starts the helpers. The rule is for the grid and the atoms of all iterations.
    CParallelIteration(int helpers, const CWavefrontRule& rule) : m_Rule(rule), m_Helpers(helpers) {}

    int GetThreadCount() const { return m_Helpers.GetHelperCount() + 1; }

    // See AdvanceOneIteration. Throws what a thread throws.
    std::uint32_t Advance(CAtoms& atoms, CCollisionGrid& grid, const CSize<int>& world, CRandom& random,
                          const CSimulationKernels& kernels);

private:
    void EnterAtoms(const CIterationWork& work, std::size_t uChunks);
    std::uint32_t Collide(const CIterationWork& work, CRandom& random);
    void ComputeStatistics(const CIterationWork& work, std::size_t uChunks);

    CWavefrontRule m_Rule;
    CWavefront m_Wavefront;
    std::vector<float> m_Speeds;
    CHelperPool m_Helpers;
};
