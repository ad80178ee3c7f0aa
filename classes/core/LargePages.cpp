#include "classes/core/LargePages.h"

#ifdef __linux__
#include <cstdint>
#include <sys/mman.h>
#endif

#ifdef __linux__
void PreferLargePages(void* pMemory, std::size_t uBytes) noexcept
{
    constexpr std::uintptr_t c_uLargePage = std::uintptr_t{2} << 20;
    const auto uAddress = reinterpret_cast<std::uintptr_t>(pMemory);
    const std::uintptr_t uFirst = (uAddress + c_uLargePage - 1) / c_uLargePage * c_uLargePage;
    const std::uintptr_t uEnd = (uAddress + uBytes) / c_uLargePage * c_uLargePage;
    if (uFirst < uEnd)
    {
        static_cast<void>(madvise(reinterpret_cast<void*>(uFirst), uEnd - uFirst, MADV_HUGEPAGE));
    }
}
#else
void PreferLargePages(void*, std::size_t) noexcept {}
#endif
