#include "tests/simulation/CAllocationWatch.h"

#include "tests/ReplacedAllocation.h"

#include <atomic>
#include <limits>

namespace
{

std::atomic<std::size_t> g_uAllocations{0};
std::atomic<std::size_t> g_uLimit{std::numeric_limits<std::size_t>::max()};

} // namespace

bool MayAllocate(std::size_t uBytes) noexcept
{
    ++g_uAllocations;
    return uBytes < g_uLimit;
}

CAllocationWatch::CAllocationWatch() : m_uStart(g_uAllocations) {}

std::size_t CAllocationWatch::GetCount() const
{
    return g_uAllocations - m_uStart;
}

CAllocationLimit::CAllocationLimit(std::size_t uBytes)
{
    g_uLimit = uBytes;
}

CAllocationLimit::~CAllocationLimit()
{
    g_uLimit = std::numeric_limits<std::size_t>::max();
}
