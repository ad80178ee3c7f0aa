#pragma once

#include <cstddef>

// A test program with ReplacedAllocation.cpp among its sources has its own operator new. It calls this function, which
// the program defines, before each allocation on any thread. If the function returns false, the allocation fails as if
// memory had run out.
bool MayAllocate(std::size_t uBytes) noexcept;
