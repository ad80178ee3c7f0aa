#pragma once

#include "tests/endtoend/heapprobe/CHeapCount.h"

#include <windows.h>

// Counts what the heaps of another process hold, through a probe that it loads into that process and leaves there.
class CForeignHeap
{
public:
    // Throws std::runtime_error if the probe cannot be loaded there. The handle stays the caller's.
    CForeignHeap(HANDLE hProcess, DWORD uProcessId);
    ~CForeignHeap();
    CForeignHeap(const CForeignHeap&) = delete;
    CForeignHeap& operator=(const CForeignHeap&) = delete;

    // Throws std::runtime_error if the heaps could not be walked to their ends.
    CHeapCount Count() const;

private:
    HANDLE m_hProcess;
    void* m_pThere = nullptr; // memory of the other process: a path first, then the results
    void* m_pFunctionThere = nullptr;
};
