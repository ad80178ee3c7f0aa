#pragma once

#include "classes/core/CrashText.h"

#include <windows.h>

#include <cstdint>

// The module of an address and the offset in it. Does not allocate.
CCrashPlace FindCrashPlace(std::uint64_t uAddress) noexcept;

// Calls pVisit with the place of each call on the stack, from the innermost outwards, beginning with the place of the
// context itself. The thread of the context must not run meanwhile. A corrupt stack ends the walk.
void WalkCrashStack(const CONTEXT& context, void (*pVisit)(const CCrashPlace& place)) noexcept;
