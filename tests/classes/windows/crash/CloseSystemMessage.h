#pragma once

#include <windows.h>

#include <string>

// Waits for a system message box of the process, closes it and returns its text; an empty text when the process has
// ended without one. Throws std::runtime_error when neither comes.
std::wstring CloseSystemMessage(HANDLE hProcess);
