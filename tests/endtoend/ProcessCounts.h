#pragma once

#include <windows.h>

#include <string>

// How many threads the process has.
int CountThreads(DWORD uProcessId);

// How many kernel handles the process has open.
int CountHandles(DWORD uProcessId);

struct CGdiCount
{
    int total = 0;
    std::string kinds; // how many of each, to read; empty where the system only tells the total
};

// How many GDI objects the process holds.
CGdiCount CountGdiObjects(HANDLE hProcess);

// How many user objects the process holds; under Wine, which does not count them, how many windows it has.
int CountUserObjects(HANDLE hProcess);
