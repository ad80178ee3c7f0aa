#include "tests/simulation/CAllocationWatch.h"

#include "tests/ReplacedAllocation.h"

#include <atomic>
#include <limits>

namespace
{

std::atomic<std::size_t> g_uAllocations{0};
std::atomic<std::size_t> g_uLimit{std::numeric_limits<std::size_t>::max()};
std::atomic<std::size_t> g_uGranted{0}; // above the limit, before the first failure

} // namespace

bool MayAllocate(std::size_t uBytes) noexcept
{
    ++g_uAllocations;
    if (uBytes < g_uLimit)
    {
        return true;
    }
    std::size_t uGranted = g_uGranted;
    while (uGranted > 0 && !g_uGranted.compare_exchange_weak(uGranted, uGranted - 1))
    {
    }
    return uGranted > 0;
}

CAllocationWatch::CAllocationWatch() : m_uStart(g_uAllocations) {}

std::size_t CAllocationWatch::GetCount() const
{
    return g_uAllocations - m_uStart;
}

CAllocationLimit::CAllocationLimit(std::size_t uBytes, std::size_t uGranted)
{
    g_uGranted = uGranted;
    g_uLimit = uBytes;
}

CAllocationLimit::~CAllocationLimit()
{
    g_uLimit = std::numeric_limits<std::size_t>::max();
}
