#pragma once

#include <windows.h>

// How many threads the process has.
int CountThreads(DWORD uProcessId);

// How many kernel handles the process has open.
int CountHandles(DWORD uProcessId);

// How many GDI objects the process holds.
int CountGdiObjects(HANDLE hProcess);

// How many user objects the process holds; under Wine, which does not count them, how many windows it has.
int CountUserObjects(HANDLE hProcess);
