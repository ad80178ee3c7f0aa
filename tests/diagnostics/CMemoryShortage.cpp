#include "tests/diagnostics/CMemoryShortage.h"

#include <cstddef>
#include <cstdlib>
#include <new>

namespace
{

thread_local bool g_bShortage = false;

} // namespace

CMemoryShortage::CMemoryShortage()
{
    g_bShortage = true;
}

CMemoryShortage::~CMemoryShortage()
{
    g_bShortage = false;
}

// These replace the allocation functions of the whole test program.

void* operator new(std::size_t uSize)
{
    void* const pMemory = g_bShortage ? nullptr : std::malloc(uSize > 0 ? uSize : 1);
    if (pMemory == nullptr)
        throw std::bad_alloc();
    return pMemory;
}

void operator delete(void* pMemory) noexcept
{
    std::free(pMemory);
}

void operator delete(void* pMemory, std::size_t) noexcept
{
    std::free(pMemory);
}
