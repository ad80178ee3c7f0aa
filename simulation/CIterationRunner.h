#pragma once

#include "classes/core/CSize.h"

#include <cstdint>
#include <memory>

class CAtoms;
class CCollisionGrid;
class CParallelIteration;
class CRandom;
struct CWavefrontRule;

// Computes the iterations of one run: of the same atoms in the same world. Large worlds get helpers, which live as long
// as this object and sleep between iterations. Whatever the number of threads is, the bits are the same.
class CIterationRunner
{
public:
    // Uses at most that many threads, this one included.
    explicit CIterationRunner(int threads);
    ~CIterationRunner();
    CIterationRunner(const CIterationRunner&) = delete;
    CIterationRunner& operator=(const CIterationRunner&) = delete;

    // See AdvanceOneIteration. Throws what a helper throws.
    std::uint32_t Advance(CAtoms& atoms, CCollisionGrid& grid, const CSize<int>& world, CRandom& random);

    // The number of threads that the last iteration has used.
    int GetThreadCount() const;

private:
    void Start(const CAtoms& atoms, const CCollisionGrid& grid);

    int m_iMostThreads;
    bool m_bStarted = false;
    std::unique_ptr<CParallelIteration> m_pParallel; // null: one thread
};

// The number of threads, at most mostThreads, that gain something for that many atoms.
int CountUsefulThreads(std::int32_t atoms, const CWavefrontRule& rule, int mostThreads);
