#pragma once

#include <windows.h>

#include <string>

// Waits for a system message box of the process, closes it and returns its text. The text is empty if the process has
// ended without a message box. Throws std::runtime_error if neither happens.
std::wstring CloseSystemMessage(HANDLE hProcess);
