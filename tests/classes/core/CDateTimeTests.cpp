#include "classes/core/CDateTime.h"

#include <chrono>
#include <gtest/gtest.h>
#include <thread>

namespace
{

TEST(DateTime, TheDifferenceOfAMomentToItselfIsZero)
{
    const CDateTime moment;
    EXPECT_EQ(moment.DiffInMicroSeconds(moment), 0);
    EXPECT_EQ(moment.DiffInMilliSeconds(moment), 0);
}

TEST(DateTime, TheDifferenceToAnEarlierMomentIsTheElapsedTimeAndTheOppositeIsNegative)
{
    const CDateTime earlier;
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
    const CDateTime later;
    EXPECT_GE(later.DiffInMicroSeconds(earlier), 5000);
    EXPECT_GE(later.DiffInMilliSeconds(earlier), 5);
    EXPECT_EQ(earlier.DiffInMicroSeconds(later), -later.DiffInMicroSeconds(earlier));
}

TEST(DateTime, MilliSecondsAreMicroSecondsDividedByAThousandAndTruncated)
{
    const CDateTime earlier;
    std::this_thread::sleep_for(std::chrono::microseconds(2500));
    const CDateTime later;
    EXPECT_EQ(later.DiffInMilliSeconds(earlier), later.DiffInMicroSeconds(earlier) / 1000);
}

TEST(DateTime, AMomentThatIsKnownIsKept)
{
    using std::chrono::microseconds;
    const CDateTime earlier(std::chrono::steady_clock::time_point(microseconds(500)));
    const CDateTime later(std::chrono::steady_clock::time_point(microseconds(3499)));
    EXPECT_EQ(later.DiffInMicroSeconds(earlier), 2999);
    EXPECT_EQ(later.DiffInMilliSeconds(earlier), 2);
    EXPECT_EQ(earlier.DiffInMilliSeconds(later), -2);
}

TEST(DateTime, TheClockNeverRunsBackwards)
{
    CDateTime last;
    for (int i = 0; i < 100'000; ++i)
    {
        const CDateTime now;
        ASSERT_GE(now.DiffInMicroSeconds(last), 0);
        last = now;
    }
}

} // namespace
