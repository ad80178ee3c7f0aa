#pragma once

#include "classes/core/CSize.h"
#include "simulation/CFastestWay.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>

class CAtoms;
class CCollisionGrid;
class CParallelIteration;
class CRandom;
struct CSimulationKernels;
struct CWavefrontRule;

// How an iteration is computed.
struct CIterationWay
{
    const char* sKernels;
    int threads;
};

// Computes the iterations of one run: of the same atoms in the same world. Large worlds get helpers, which live as long
// as this object and sleep between iterations. It measures which kernels and how many threads are the fastest, and goes
// on with those; the bits are the same in any case.
class CIterationRunner
{
public:
    // Uses at most that many threads, this one included, and these kernels.
    explicit CIterationRunner(int threads);
    CIterationRunner(int threads, std::span<const CSimulationKernels> kernels);
    ~CIterationRunner();
    CIterationRunner(const CIterationRunner&) = delete;
    CIterationRunner& operator=(const CIterationRunner&) = delete;

    // See AdvanceOneIteration. Throws what a helper throws.
    std::uint32_t Advance(CAtoms& atoms, CCollisionGrid& grid, const CSize<int>& world, CRandom& random);

    // The number of threads that an iteration may use, after the first.
    int GetThreadCount() const;

    // The way of the next iteration; only after the first.
    CIterationWay GetWay() const;

private:
    void Start(const CAtoms& atoms, const CCollisionGrid& grid);

    int m_iMostThreads;
    std::span<const CSimulationKernels> m_Kernels;
    std::optional<CFastestWay> m_FastestWay;         // since the first iteration
    std::unique_ptr<CParallelIteration> m_pParallel; // null: one thread
};

// The number of threads, at most mostThreads, that gain something for that many atoms.
int CountUsefulThreads(std::int32_t atoms, const CWavefrontRule& rule, int mostThreads);
