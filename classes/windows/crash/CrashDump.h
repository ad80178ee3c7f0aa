#pragma once

#include <windows.h>

// Writes a minidump of this process to the open file: all threads with their stacks, the modules, and the exception of
// the given thread. Call it on another thread than that one. It loads the system's debug library.
// Returns 0 or the system's error code.
DWORD WriteCrashDump(HANDLE hFile, DWORD dwThread, EXCEPTION_POINTERS* pPointers) noexcept;
