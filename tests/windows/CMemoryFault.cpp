#include "tests/windows/CMemoryFault.h"

#include "tests/ReplacedAllocation.h"

#include <atomic>
#include <limits>
#include <windows.h>

namespace
{
constexpr std::size_t c_uNever = std::numeric_limits<std::size_t>::max();

std::atomic<DWORD> g_dwThread{0};
std::atomic<bool> g_bOtherThreads{false};
std::atomic<std::size_t> g_uBytes{c_uNever};
std::atomic<std::size_t> g_uPlace{c_uNever}; // allocations that still succeed before one fails
std::atomic<std::size_t> g_uFailed{0};

void Begin(bool bOtherThreads, std::size_t uBytes, std::size_t uPlace)
{
    g_uFailed = 0;
    g_dwThread = GetCurrentThreadId();
    g_bOtherThreads = bOtherThreads;
    g_uBytes = uBytes;
    g_uPlace = uPlace;
}
} // namespace

bool MayAllocate(std::size_t uBytes) noexcept
{
    if (g_uBytes == c_uNever && g_uPlace == c_uNever)
    {
        return true;
    }
    if ((GetCurrentThreadId() == g_dwThread) == g_bOtherThreads)
    {
        return true;
    }
    const bool bHere = g_uPlace != c_uNever && g_uPlace-- == 0;
    if (!bHere && uBytes < g_uBytes)
    {
        return true;
    }
    ++g_uFailed;
    return false;
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
