#pragma once

#include "tests/endtoend/heapprobe/CHeapCount.h"

#include <windows.h>

// Counts the heap blocks of another process with a probe library. The probe stays loaded in that process.
class CForeignHeap
{
public:
    // Throws std::runtime_error if the probe cannot be loaded. The caller keeps the handle.
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
