#include "classes/core/CountProcessors.h"

#ifdef _WIN32
#include <windows.h>

#include <bit>
#else
#include <sched.h>
#endif

int CountUsableProcessors()
{
#ifdef _WIN32
    // A process starts in one group of at most 64 processors; the mask is that of this group.
    DWORD_PTR uProcess = 0;
    DWORD_PTR uSystem = 0;
    if (GetProcessAffinityMask(GetCurrentProcess(), &uProcess, &uSystem) == 0 || uProcess == 0)
    {
        return 1;
    }
    return std::popcount(uProcess);
#else
    // Fails on a machine with more processors than the set has room for (1,024).
    cpu_set_t processors;
    if (sched_getaffinity(0, sizeof processors, &processors) != 0)
    {
        return 1;
    }
    return CPU_COUNT(&processors);
#endif
}
