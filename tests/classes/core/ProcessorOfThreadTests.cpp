#include "classes/core/CountProcessors.h"
#include "classes/core/ProcessorOfThread.h"

#include <gtest/gtest.h>

namespace
{

// The system may move a thread at any time, so one success in many turns counts.
bool CanLeaveItsProcessor()
{
    for (int turn = 0; turn < 1000; ++turn)
    {
        const int before = GetProcessorOfThread();
        LeaveProcessor(before);
        if (GetProcessorOfThread() != before)
        {
            return true;
        }
    }
    return false;
}

TEST(ProcessorOfThread, AThreadLeavesItsProcessorIfThereIsAnother)
{
    EXPECT_GE(GetProcessorOfThread(), 0);
    EXPECT_EQ(CanLeaveItsProcessor(), CountUsableProcessors() > 1);
}

TEST(ProcessorOfThread, AfterwardsTheThreadMayUseTheSameProcessorsAsBefore)
{
    const int before = CountUsableProcessors();
    LeaveProcessor(GetProcessorOfThread());
    EXPECT_EQ(CountUsableProcessors(), before);
}

TEST(ProcessorOfThread, AProcessorThatDoesNotExistChangesNothing)
{
    const int before = CountUsableProcessors();
    LeaveProcessor(-1);
    LeaveProcessor(1'000'000);
    EXPECT_EQ(CountUsableProcessors(), before);
}

} // namespace
