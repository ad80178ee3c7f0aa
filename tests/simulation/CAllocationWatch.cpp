#include "tests/simulation/CAllocationWatch.h"

#include <atomic>
#include <cstdlib>
#include <limits>
#include <new>

namespace
{

std::atomic<std::size_t> g_uAllocations{0};
std::atomic<std::size_t> g_uLimit{std::numeric_limits<std::size_t>::max()};

void* Allocate(std::size_t uSize)
{
    ++g_uAllocations;
    void* const pMemory = uSize < g_uLimit ? std::malloc(uSize == 0 ? 1 : uSize) : nullptr;
    if (pMemory == nullptr)
    {
        throw std::bad_alloc();
    }
    return pMemory;
}

} // namespace

void* operator new(std::size_t uSize)
{
    return Allocate(uSize);
}

void* operator new[](std::size_t uSize)
{
    return Allocate(uSize);
}

void operator delete(void* pMemory) noexcept
{
    std::free(pMemory);
}

void operator delete[](void* pMemory) noexcept
{
    std::free(pMemory);
}

void operator delete(void* pMemory, std::size_t /*uSize*/) noexcept
{
    std::free(pMemory);
}

void operator delete[](void* pMemory, std::size_t /*uSize*/) noexcept
{
    std::free(pMemory);
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
