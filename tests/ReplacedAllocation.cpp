#include "tests/ReplacedAllocation.h"

#include <cstdlib>
#include <new>

// These replace the allocation functions of the whole test program.

void* operator new(std::size_t uSize)
{
    void* const pMemory = MayAllocate(uSize) ? std::malloc(uSize == 0 ? 1 : uSize) : nullptr;
    if (pMemory == nullptr)
    {
        throw std::bad_alloc();
    }
    return pMemory;
}

void* operator new[](std::size_t uSize)
{
    return operator new(uSize);
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
