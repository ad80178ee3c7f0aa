#include "classes/core/ProcessorOfThread.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <sched.h>
#endif

int GetProcessorOfThread()
{
#ifdef _WIN32
    return static_cast<int>(GetCurrentProcessorNumber());
#else
    return sched_getcpu();
#endif
}

void LeaveProcessor(int processor)
{
#ifdef _WIN32
    // A mask is that of a group of at most 64 processors. Where there are several groups, it would tie the thread to
    // one of them. A mask without a processor is refused.
    DWORD_PTR uProcess = 0;
    DWORD_PTR uSystem = 0;
    if (GetActiveProcessorGroupCount() > 1 || GetProcessAffinityMask(GetCurrentProcess(), &uProcess, &uSystem) == 0)
    {
        return;
    }
    const DWORD_PTR uPrevious = SetThreadAffinityMask(GetCurrentThread(), uProcess & ~(DWORD_PTR{1} << processor));
    if (uPrevious != 0)
    {
        SetThreadAffinityMask(GetCurrentThread(), uPrevious);
    }
#else
    cpu_set_t allowed;
    if (sched_getaffinity(0, sizeof allowed, &allowed) != 0)
    {
        return;
    }
    cpu_set_t others = allowed;
    CPU_CLR(static_cast<unsigned>(processor), &others);
    if (sched_setaffinity(0, sizeof others, &others) == 0) // fails if there are none
    {
        sched_setaffinity(0, sizeof allowed, &allowed);
    }
#endif
}
