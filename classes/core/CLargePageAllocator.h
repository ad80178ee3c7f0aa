#pragma once

#include "classes/core/LargePages.h"

#include <cstddef>
#include <memory>
#include <vector>

// The usual allocator, except that it prefers large pages.
template<class T>
class CLargePageAllocator
{
public:
    using value_type = T;

    CLargePageAllocator() = default;
    template<class U>
    CLargePageAllocator(const CLargePageAllocator<U>&) noexcept
    {
    }

    T* allocate(std::size_t uCount)
    {
        T* const pMemory = std::allocator<T>().allocate(uCount);
        PreferLargePages(pMemory, pMemory + uCount);
        return pMemory;
    }

    void deallocate(T* pMemory, std::size_t uCount) noexcept { std::allocator<T>().deallocate(pMemory, uCount); }

    bool operator==(const CLargePageAllocator&) const = default;
};

// A vector for many megabytes.
template<class T>
using CLargeVector = std::vector<T, CLargePageAllocator<T>>;
