#include "simulation/CIterationRunner.h"

#include "simulation/CAtoms.h"
#include "simulation/CCollisionGrid.h"
#include "simulation/CParallelIteration.h"
#include "simulation/Iteration.h"
#include "simulation/SimulationKernels.h"
#include "simulation/WavefrontRule.h"

#include <algorithm>

namespace
{

// With fewer atoms, handing over the work takes longer than the helpers save.
constexpr std::int32_t c_iFewestAtomsForHelpers = 2'000;

int GetLargestRadius(const CAtoms& atoms)
{
    int largest = 0;
    for (std::int32_t i = 0; i < atoms.GetCount(); ++i)
    {
        largest = std::max<int>(largest, atoms[i].radius);
    }
    return largest;
}

} // namespace

CIterationRunner::CIterationRunner(int threads) : m_iMostThreads(threads) {}

CIterationRunner::~CIterationRunner() = default;

std::uint32_t CIterationRunner::Advance(CAtoms& atoms, CCollisionGrid& grid, const CSize<int>& world, CRandom& random)
{
    if (!m_bStarted)
    {
        Start(atoms, grid);
    }
    if (!m_pParallel)
    {
        return AdvanceOneIteration(atoms, grid, world, random);
    }
    return m_pParallel->Advance(atoms, grid, world, random, GetSimulationKernels());
}

int CIterationRunner::GetThreadCount() const
{
    return m_pParallel ? m_pParallel->GetThreadCount() : 1;
}

void CIterationRunner::Start(const CAtoms& atoms, const CCollisionGrid& grid)
{
    const CWavefrontRule rule = CWavefrontRule::Get(grid.GetGeometry(), GetLargestRadius(atoms));
    const int threads = CountUsefulThreads(atoms.GetCount(), rule, m_iMostThreads);
    if (threads > 1)
    {
        m_pParallel = std::make_unique<CParallelIteration>(threads - 1, rule);
    }
    m_bStarted = true;
}

int CountUsefulThreads(std::int32_t atoms, const CWavefrontRule& rule, int mostThreads)
{
    return atoms < c_iFewestAtomsForHelpers ? 1 : std::min(mostThreads, rule.GetMostRowsAtWork());
}
