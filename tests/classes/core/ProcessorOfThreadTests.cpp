#include "classes/core/CountProcessors.h"
#include "classes/core/ProcessorOfThread.h"

#include <gtest/gtest.h>

#include <bit>
#include <thread>

#ifdef _WIN32
#include <windows.h>
#endif

namespace
{

#ifdef _WIN32
// CountUsableProcessors counts those of the process there.
int CountProcessorsOfThread()
{
    DWORD_PTR uProcess = 0;
    DWORD_PTR uSystem = 0;
    GetProcessAffinityMask(GetCurrentProcess(), &uProcess, &uSystem);
    const DWORD_PTR uThread = SetThreadAffinityMask(GetCurrentThread(), uProcess);
    SetThreadAffinityMask(GetCurrentThread(), uThread);
    return std::popcount(uThread);
}
#else
int CountProcessorsOfThread()
{
    return CountUsableProcessors();
}
#endif

// What a thread sees before and after it has left its processor. Each test has a thread of its own, so that what one
// changes does not hide what the next one does.
struct CLeaving
{
    int usableBefore = 0;
    bool bHasLeft = false;
    int usableAfter = 0;
};

// The system may move a thread at any time, so one success in many turns counts.
CLeaving LeaveProcessorInThread()
{
    CLeaving leaving;
    std::thread([&leaving] {
        leaving.usableBefore = CountProcessorsOfThread();
        for (int turn = 0; turn < 1000 && !leaving.bHasLeft; ++turn)
        {
            const int before = GetProcessorOfThread();
            LeaveProcessor(before);
            leaving.bHasLeft = GetProcessorOfThread() != before;
        }
        leaving.usableAfter = CountProcessorsOfThread();
    }).join();
    return leaving;
}

TEST(ProcessorOfThread, AThreadLeavesItsProcessorIfThereIsAnother)
{
    EXPECT_GE(GetProcessorOfThread(), 0);
    const CLeaving leaving = LeaveProcessorInThread();
    EXPECT_EQ(leaving.bHasLeft, leaving.usableBefore > 1);
}

TEST(ProcessorOfThread, AfterwardsTheThreadMayUseTheSameProcessorsAsBefore)
{
    const CLeaving leaving = LeaveProcessorInThread();
    EXPECT_EQ(leaving.usableAfter, leaving.usableBefore);
}

} // namespace
