// A library that a test loads into the program under test, because a process's heaps can only be walked from inside.

#include "tests/endtoend/heapprobe/CHeapCount.h"

#include <windows.h>

#include <array>

namespace
{
constexpr DWORD c_uMostHeaps = 256;

// False if the heap cannot be walked to its end.
bool AddHeap(HANDLE hHeap, CHeapCount& count)
{
    if (HeapLock(hHeap) == FALSE)
    {
        return false;
    }
    PROCESS_HEAP_ENTRY entry{};
    while (HeapWalk(hHeap, &entry) != FALSE)
    {
        if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0)
        {
            ++count.blocks;
            count.bytes += entry.cbData;
        }
    }
    const bool bToTheEnd = GetLastError() == ERROR_NO_MORE_ITEMS;
    HeapUnlock(hHeap);
    return bToTheEnd;
}
} // namespace

// A thread's entry: `pResult` is a CHeapCount in this process. It allocates nothing from the heaps that it counts.
extern "C" __declspec(dllexport) DWORD WINAPI CountHeaps(void* pResult)
{
    CHeapCount count;
    std::array<HANDLE, c_uMostHeaps> heaps{};
    count.heaps = GetProcessHeaps(c_uMostHeaps, heaps.data());
    bool bAll = count.heaps <= c_uMostHeaps;
    for (DWORD i = 0; bAll && i < count.heaps; ++i)
    {
        bAll = AddHeap(heaps[i], count);
    }
    count.complete = bAll ? 1 : 0;
    *static_cast<CHeapCount*>(pResult) = count;
    return 0;
}
