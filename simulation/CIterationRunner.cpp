#include "simulation/CIterationRunner.h"

#include "simulation/CAtoms.h"
#include "simulation/CCollisionGrid.h"
#include "simulation/CParallelIteration.h"
#include "simulation/Iteration.h"
#include "simulation/SimulationKernels.h"
#include "simulation/WavefrontRule.h"

#include <algorithm>
#include <chrono>

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

CIterationRunner::CIterationRunner(int threads) : CIterationRunner(threads, GetAllowedKernels()) {}

CIterationRunner::CIterationRunner(int threads, std::span<const CSimulationKernels> kernels)
    : m_iMostThreads(threads), m_Kernels(kernels)
{
}

CIterationRunner::~CIterationRunner() = default;

std::uint32_t CIterationRunner::Advance(CAtoms& atoms, CCollisionGrid& grid, const CSize<int>& world, CRandom& random)
{
    if (!m_FastestWay)
    {
        Start(atoms, grid);
    }
    const CWay way = m_FastestWay->GetWay();
    const CSimulationKernels& kernels = m_Kernels[way.uKernels];
    const auto advance = [&] {
        return way.uParallel != 0 ? m_pParallel->Advance(atoms, grid, world, random, kernels)
                                  : AdvanceOneIteration(atoms, grid, world, random, kernels);
    };
    if (!m_FastestWay->IsTimed())
    {
        const std::uint32_t uCollisions = advance();
        m_FastestWay->Report(0);
        return uCollisions;
    }
    const auto start = std::chrono::steady_clock::now();
    const std::uint32_t uCollisions = advance();
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
    m_FastestWay->Report(elapsed.count());
    return uCollisions;
}

CIterationWay CIterationRunner::GetWay() const
{
    const CWay way = m_FastestWay->GetWay();
    return {m_Kernels[way.uKernels].name, way.uParallel != 0 ? GetThreadCount() : 1};
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
    // The system may have refused all helpers.
    m_FastestWay.emplace(m_Kernels.size(), GetThreadCount() > 1 ? 2 : 1);
}

int CountUsefulThreads(std::int32_t atoms, const CWavefrontRule& rule, int mostThreads)
{
    return atoms < c_iFewestAtomsForHelpers ? 1 : std::min(mostThreads, rule.GetMostRowsAtWork());
}
