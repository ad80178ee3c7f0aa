#include "classes/core/CWaitTimer.h"

#include "classes/core/CDateTime.h"

#include <gtest/gtest.h>
#include <limits>
#include <thread>
#include <vector>

namespace
{

// The tests check only that no wait ends early. How late a wait ends depends on the machine.

std::int64_t MeasureWait(CWaitTimer& timer, std::int64_t llMicroSeconds)
{
    const CDateTime before;
    timer.WaitMicroSeconds(llMicroSeconds);
    const CDateTime after;
    return after.DiffInMicroSeconds(before);
}

TEST(WaitTimer, AWaitIsNeverShorterThanRequested)
{
    CWaitTimer timer;
    for (const std::int64_t llMicroSeconds : {1, 999, 1000, 1001, 5500, 16'666})
    {
        EXPECT_GE(MeasureWait(timer, llMicroSeconds), llMicroSeconds);
    }
}

TEST(WaitTimer, ZeroAndLessReturnWithoutWaiting)
{
    CWaitTimer timer;
    timer.WaitMicroSeconds(0);
    timer.WaitMicroSeconds(-1);
    timer.WaitMicroSeconds(-1'000'000'000);
    SUCCEED();
}

TEST(WaitTimer, OneTimerServesManyWaits)
{
    CWaitTimer timer;
    constexpr int iWaits = 50;
    const CDateTime before;
    for (int i = 0; i < iWaits; ++i)
    {
        timer.WaitMicroSeconds(1000);
    }
    const CDateTime after;
    EXPECT_GE(after.DiffInMilliSeconds(before), iWaits);
}

TEST(WaitTimer, TimersOfSeveralThreadsDoNotDisturbEachOther)
{
    std::vector<std::jthread> threads;
    for (int iThread = 1; iThread <= 4; ++iThread)
    {
        threads.emplace_back([iThread] {
            CWaitTimer timer;
            for (int i = 0; i < 5; ++i)
            {
                EXPECT_GE(MeasureWait(timer, std::int64_t{iThread} * 1500), std::int64_t{iThread} * 1500);
            }
        });
    }
}

} // namespace
