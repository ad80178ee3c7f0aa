#include "simulation/CFastestWay.h"

#include <gtest/gtest.h>

#include <functional>
#include <utility>

namespace
{

constexpr std::size_t c_uKernelSets = 3;
constexpr std::size_t c_uParallelWays = 2;
constexpr int c_iRaces = 40; // iterations in which all races are over

using CTimes = std::function<double(const CWay&)>;

// Runs that many iterations, which take these times, and returns their sum.
double Iterate(CFastestWay& fastest, int iterations, const CTimes& getTime)
{
    double total = 0;
    for (int i = 0; i < iterations; ++i)
    {
        const double time = getTime(fastest.GetWay());
        total += time;
        fastest.Report(fastest.IsTimed() ? time : 0);
    }
    return total;
}

CTimes MakeTimes(const CWay& best, double otherKernels, double otherThreads)
{
    return [=](const CWay& way) {
        return (way.uKernels == best.uKernels ? 1 : otherKernels) *
               (way.uParallel == best.uParallel ? 1 : otherThreads);
    };
}

TEST(FastestWay, TheRacesFindEveryWayThatIsTheFastest)
{
    for (std::size_t uKernels = 0; uKernels < c_uKernelSets; ++uKernels)
    {
        for (std::size_t uParallel = 0; uParallel < c_uParallelWays; ++uParallel)
        {
            const CWay best = {uKernels, uParallel};
            CFastestWay fastest(c_uKernelSets, c_uParallelWays);
            Iterate(fastest, c_iRaces, MakeTimes(best, 1.1, 1.3));
            EXPECT_EQ(fastest.GetWay(), best);
        }
    }
}

TEST(FastestWay, AnotherRaceFollowsWhenTheWorldHasChanged)
{
    CFastestWay fastest(c_uKernelSets, c_uParallelWays);
    Iterate(fastest, c_iRaces, MakeTimes({2, 1}, 1.1, 1.5));
    ASSERT_EQ(fastest.GetWay(), (CWay{2, 1}));
    // Another program takes the processors: several threads become slow.
    Iterate(fastest, 500, MakeTimes({2, 0}, 1.1, 3));
    EXPECT_EQ(fastest.GetWay(), (CWay{2, 0}));
}

TEST(FastestWay, AnotherRaceFollowsFromTimeToTime)
{
    CFastestWay fastest(c_uKernelSets, c_uParallelWays);
    Iterate(fastest, c_iRaces, MakeTimes({2, 0}, 1.1, 1.5));
    ASSERT_EQ(fastest.GetWay(), (CWay{2, 0}));
    // The present way takes the same time as before.
    const CTimes nowFasterOnSeveral = [](const CWay& way) { return way.uParallel != 0 ? 0.5 : 1.0; };
    Iterate(fastest, 1000, nowFasterOnSeveral);
    EXPECT_EQ(fastest.GetWay().uParallel, 1U);
}

TEST(FastestWay, TheSlowerWaysCostAtMostATwentiethHoweverSlowTheyAre)
{
    for (const double slow : {1.01, 2.0, 30.0})
    {
        CFastestWay fastest(c_uKernelSets, c_uParallelWays);
        const CTimes times = MakeTimes({1, 0}, slow, slow);
        Iterate(fastest, c_iRaces, times);
        constexpr int c_iIterations = 100'000;
        EXPECT_LE(Iterate(fastest, c_iIterations, times), c_iIterations * 1.06) << slow;
    }
}

// A disturbance that hits a set of kernels once does not decide against it.
TEST(FastestWay, ASingleSlowIterationDoesNotDecideBetweenKernels)
{
    CFastestWay fastest(c_uKernelSets, 1);
    bool bDisturbed = false;
    Iterate(fastest, c_iRaces, [&](const CWay& way) {
        const bool bFirst = way.uKernels == 0 && fastest.IsTimed() && !std::exchange(bDisturbed, true);
        return bFirst ? 100.0 : way.uKernels == 0 ? 1.0 : 1.1;
    });
    EXPECT_EQ(fastest.GetWay().uKernels, 0U);
}

// Several threads wait for each other when one is disturbed. So their slow iterations count in full.
TEST(FastestWay, SeveralThreadsThatAreSlowNowAndThenLose)
{
    CFastestWay fastest(1, c_uParallelWays);
    int iteration = 0;
    Iterate(fastest, c_iRaces, [&](const CWay& way) {
        return way.uParallel == 0 ? 1.0 : ++iteration % 3 == 0 ? 9.0 : 0.6;
    });
    EXPECT_EQ(fastest.GetWay().uParallel, 0U);
}

TEST(FastestWay, SeveralThreadsAreGivenUpAtOnceWhenTheyBecomeSlowerThanOne)
{
    CFastestWay fastest(c_uKernelSets, c_uParallelWays);
    Iterate(fastest, c_iRaces, MakeTimes({2, 1}, 3, 1.9));
    ASSERT_EQ(fastest.GetWay(), (CWay{2, 1}));
    // Usually as fast as before.
    int iteration = 0;
    Iterate(fastest, 16, [&](const CWay& way) { return way.uParallel == 0 ? 1.9 : ++iteration % 8 == 0 ? 50.0 : 1.0; });
    EXPECT_EQ(fastest.GetWay(), (CWay{2, 0}));
}

TEST(FastestWay, TheOnlyWayIsNeverTimed)
{
    CFastestWay fastest(1, 1);
    for (int i = 0; i < 2000; ++i)
    {
        ASSERT_FALSE(fastest.IsTimed());
        fastest.Report(0);
    }
    EXPECT_EQ(fastest.GetWay(), (CWay{0, 0}));
}

} // namespace
