#include "classes/core/LargePages.h"

#ifdef __linux__
#include <cstdint>
#include <sys/mman.h>
#endif

#ifdef __linux__
void PreferLargePages(void* pFirst, void* pEnd) noexcept
{
    constexpr std::uintptr_t c_uLargePage = std::uintptr_t{2} << 20;
    const auto uBegin = reinterpret_cast<std::uintptr_t>(pFirst);
    const std::uintptr_t uFirst = (uBegin + c_uLargePage - 1) / c_uLargePage * c_uLargePage;
    const std::uintptr_t uEnd = reinterpret_cast<std::uintptr_t>(pEnd) / c_uLargePage * c_uLargePage;
    if (uFirst < uEnd)
    {
        static_cast<void>(madvise(reinterpret_cast<void*>(uFirst), uEnd - uFirst, MADV_HUGEPAGE));
    }
}
#else
void PreferLargePages(void*, void*) noexcept {}
#endif
