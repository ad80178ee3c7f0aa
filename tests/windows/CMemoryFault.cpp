#include "tests/windows/CMemoryFault.h"

#include <atomic>
#include <cstdlib>
#include <limits>
#include <new>
#include <windows.h>

namespace
{
constexpr std::size_t c_uNever = std::numeric_limits<std::size_t>::max();

std::atomic<DWORD> g_dwThread{0};
std::atomic<bool> g_bOtherThreads{false};
std::atomic<std::size_t> g_uBytes{c_uNever};
std::atomic<std::size_t> g_uPlace{c_uNever}; // how many may still succeed before one fails
std::atomic<std::size_t> g_uFailed{0};

bool Fails(std::size_t uSize)
{
    if (g_uBytes == c_uNever && g_uPlace == c_uNever)
        return false;
    if ((GetCurrentThreadId() == g_dwThread) == g_bOtherThreads)
        return false;
    const bool bHere = g_uPlace != c_uNever && g_uPlace-- == 0;
    if (!bHere && uSize < g_uBytes)
        return false;
    ++g_uFailed;
    return true;
}

void* Allocate(std::size_t uSize)
{
    void* const pMemory = Fails(uSize) ? nullptr : std::malloc(uSize == 0 ? 1 : uSize);
    if (pMemory == nullptr)
        throw std::bad_alloc();
    return pMemory;
}

void Begin(bool bOtherThreads, std::size_t uBytes, std::size_t uPlace)
{
    g_uFailed = 0;
    g_dwThread = GetCurrentThreadId();
    g_bOtherThreads = bOtherThreads;
    g_uBytes = uBytes;
    g_uPlace = uPlace;
}
} // namespace

// These replace the allocation functions of the whole test program.

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

CMemoryFault::CMemoryFault(EnumWhere eWhere, std::size_t uBytes)
{
    Begin(eWhere == EnumWhere::OtherThreads, uBytes, c_uNever);
}

CMemoryFault::CMemoryFault(std::size_t uPlace)
{
    Begin(false, c_uNever, uPlace);
}

CMemoryFault::~CMemoryFault()
{
    Begin(false, c_uNever, c_uNever);
}

std::size_t CMemoryFault::GetCount() const
{
    return g_uFailed;
}
