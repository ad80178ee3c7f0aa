#pragma once

#include <windows.h>

// Registers a window class of this program, or finds it registered by an earlier object. A class of the same name with
// another procedure, left behind by a foreign library, is replaced: windows of it would never reach their objects.
// Returns false when windows of that name would not be ours: the system refuses the class, or a window of the foreign
// one still exists.
bool RegisterOwnClass(const WNDCLASSEXW& record);
