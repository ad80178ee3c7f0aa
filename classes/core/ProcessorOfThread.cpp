#include "classes/core/ProcessorOfThread.h"

#ifdef _WIN32
#include <windows.h>

#include <climits>
#else
#include <sched.h>
#endif

namespace
{

#ifdef _WIN32
constexpr int c_iMostProcessors = sizeof(DWORD_PTR) * CHAR_BIT; // of a group
#else
constexpr int c_iMostProcessors = CPU_SETSIZE;
#endif

} // namespace

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
    if (processor < 0 || processor >= c_iMostProcessors)
    {
        return;
    }
#ifdef _WIN32
    // Both masks are those of the group of this thread. A mask without a processor is refused.
    DWORD_PTR uProcess = 0;
    DWORD_PTR uSystem = 0;
    if (GetProcessAffinityMask(GetCurrentProcess(), &uProcess, &uSystem) == 0)
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
