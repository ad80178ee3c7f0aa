#pragma once

#include <cstddef>

// A test program with ReplacedAllocation.cpp among its sources has its own operator new, which asks this function of
// the program's before each allocation, on whatever thread. Where it says no, the allocation fails as if memory had run
// out.
bool MayAllocate(std::size_t uBytes) noexcept;
