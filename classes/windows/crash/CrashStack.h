#pragma once

#include "classes/core/CrashText.h"

#include <windows.h>

#include <cstdint>

// Where in which module an address lies. Does not allocate.
CCrashPlace FindCrashPlace(std::uint64_t uAddress) noexcept;

// Calls pVisit with the place of each call on the stack, from the innermost outwards, beginning with the place of the
// context itself. The thread that the context is of must stand still. A stack that makes no sense ends the walk.
void WalkCrashStack(const CONTEXT& context, void (*pVisit)(const CCrashPlace& place)) noexcept;
