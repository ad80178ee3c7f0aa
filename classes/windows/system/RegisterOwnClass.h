#pragma once

#include <windows.h>

// Registers a window class of this program, unless an earlier object has registered it. If a foreign library has left a
// class of the same name with another procedure, it is replaced: messages to its windows would never reach our objects.
// Returns false if the system refuses the class or a window of the foreign class still exists.
bool RegisterOwnClass(const WNDCLASSEXW& record);
