#include "simulation/CHelperPlace.h"
#include "simulation/CHelperPool.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <chrono>
#include <mutex>
#include <numeric>
#include <set>
#include <stdexcept>
#include <thread>

namespace
{

constexpr int c_iHelpers = 7; // more threads than most machines have processors

// Waits until that many threads have called it.
void Meet(std::atomic<int>& arrived, int threads)
{
    ++arrived;
    while (arrived < threads)
    {
        std::this_thread::yield();
    }
}

TEST(HelperPool, AllHelpersAndTheCallerWorkAtTheSameTime)
{
    CHelperPool pool(c_iHelpers);
    ASSERT_EQ(pool.GetHelperCount(), c_iHelpers);
    for (int round = 0; round < 20; ++round)
    {
        std::atomic<int> arrived = 0;
        std::mutex mutex;
        std::set<std::thread::id> threads;
        const auto meet = [&] {
            {
                const std::lock_guard lock(mutex);
                threads.insert(std::this_thread::get_id());
            }
            Meet(arrived, c_iHelpers + 1);
        };
        pool.Run(meet);
        EXPECT_EQ(threads.size(), static_cast<std::size_t>(c_iHelpers) + 1);
        EXPECT_EQ(threads.count(std::this_thread::get_id()), 1U);
    }
}

TEST(HelperPool, RunReturnsWhenAllWorkIsDone)
{
    CHelperPool pool(c_iHelpers);
    for (int round = 0; round < 2000; ++round)
    {
        std::array<int, 50> results{};
        std::atomic<std::size_t> uNext = 0;
        const auto work = [&] {
            for (std::size_t i = uNext++; i < results.size(); i = uNext++)
            {
                results[i] = 1;
            }
        };
        pool.Run(work);
        ASSERT_EQ(std::accumulate(results.begin(), results.end(), 0), 50) << "round " << round;
    }
}

TEST(HelperPool, AnExceptionOfAHelperIsThrownInTheCaller)
{
    CHelperPool pool(c_iHelpers);
    const std::thread::id caller = std::this_thread::get_id();
    std::atomic<int> arrived = 0;
    const auto fail = [&] {
        Meet(arrived, c_iHelpers + 1);
        if (std::this_thread::get_id() != caller)
        {
            throw std::domain_error("a helper");
        }
    };
    EXPECT_THROW(pool.Run(fail), std::domain_error);
    // The pool goes on, and has forgotten the exception.
    std::atomic<int> calls = 0;
    const auto count = [&] { ++calls; };
    pool.Run(count);
    EXPECT_GE(calls, 1);
}

TEST(HelperPool, AnExceptionOfTheCallerIsThrownAfterTheHelpersHaveEnded)
{
    CHelperPool pool(c_iHelpers);
    const std::thread::id caller = std::this_thread::get_id();
    std::atomic<int> arrived = 0;
    std::atomic<int> ended = 0;
    const auto fail = [&] {
        Meet(arrived, c_iHelpers + 1);
        if (std::this_thread::get_id() == caller)
        {
            throw std::domain_error("the caller");
        }
        ++ended;
    };
    EXPECT_THROW(pool.Run(fail), std::domain_error);
    EXPECT_EQ(ended, c_iHelpers);
}

TEST(HelperPool, APoolThatIsNeverUsedEnds)
{
    for (int round = 0; round < 50; ++round)
    {
        const CHelperPool pool(c_iHelpers);
    }
}

TEST(HelperPool, APoolWithoutHelpersCallsTheTaskItself)
{
    CHelperPool pool(0);
    int calls = 0;
    const auto count = [&] { ++calls; };
    pool.Run(count);
    EXPECT_EQ(calls, 1);
}

constexpr std::chrono::microseconds c_Short{10};
constexpr std::chrono::milliseconds c_Long{3};

// The number of tasks until the next change, if helper and caller are on one processor all the time; at most many.
int CountTasksToChange(CHelperPlace& place)
{
    int tasks = 1;
    while (tasks < 100'000 && !place.MustChange(0, 0))
    {
        ++tasks;
    }
    return tasks;
}

TEST(HelperPlace, AHelperChangesOnlyIfItIsOnTheProcessorOfTheCaller)
{
    CHelperPlace place(true);
    EXPECT_FALSE(place.MustChange(0, 1));
    EXPECT_TRUE(place.MustChange(1, 1));
}

TEST(HelperPlace, AChangeToAnIdleProcessorIsSoonFollowedByAnotherIfNeeded)
{
    CHelperPlace place(true);
    EXPECT_EQ(CountTasksToChange(place), 1);
    for (int change = 0; change < 10; ++change)
    {
        place.NoteChange(c_Short);
        EXPECT_EQ(CountTasksToChange(place), 4);
    }
}

TEST(HelperPlace, EachChangeToABusyProcessorDoublesThePause)
{
    CHelperPlace place(true);
    place.NoteChange(c_Long);
    const int first = CountTasksToChange(place);
    place.NoteChange(c_Long);
    EXPECT_EQ(CountTasksToChange(place), 2 * first);
    place.NoteChange(c_Long);
    EXPECT_EQ(CountTasksToChange(place), 4 * first);
    for (int change = 0; change < 20; ++change)
    {
        place.NoteChange(c_Long);
        EXPECT_LT(CountTasksToChange(place), 20'000);
    }
    place.NoteChange(c_Short);
    EXPECT_LE(CountTasksToChange(place), 4);
}

TEST(HelperPlace, WithMoreThreadsThanProcessorsNoHelperChanges)
{
    CHelperPlace place(false);
    EXPECT_FALSE(place.MustChange(0, 0));
}

} // namespace
