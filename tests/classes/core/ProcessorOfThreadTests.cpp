#include "classes/core/CountProcessors.h"
#include "classes/core/ProcessorOfThread.h"

#include <gtest/gtest.h>

#include <thread>

namespace
{

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
        leaving.usableBefore = CountUsableProcessors();
        for (int turn = 0; turn < 1000 && !leaving.bHasLeft; ++turn)
        {
            const int before = GetProcessorOfThread();
            LeaveProcessor(before);
            leaving.bHasLeft = GetProcessorOfThread() != before;
        }
        leaving.usableAfter = CountUsableProcessors();
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

TEST(ProcessorOfThread, AProcessorThatDoesNotExistChangesNothing)
{
    const int before = CountUsableProcessors();
    LeaveProcessor(-1);
    LeaveProcessor(1'000'000);
    EXPECT_EQ(CountUsableProcessors(), before);
}

} // namespace
