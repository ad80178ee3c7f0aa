#pragma once

#include <windows.h>

#include <string>

// The number of threads of the process.
int CountThreads(DWORD uProcessId);

// The number of open kernel handles of the process.
int CountHandles(DWORD uProcessId);

struct CGdiCount
{
    int total = 0;
    std::string kinds; // the count of each kind as text; empty if the system gives only the total
};

// The GDI objects of the process.
CGdiCount CountGdiObjects(HANDLE hProcess);

// The number of user objects of the process; under Wine, which does not count them, the number of its windows.
int CountUserObjects(HANDLE hProcess);
