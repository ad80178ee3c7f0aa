#include "classes/core/CountProcessors.h"

#include <gtest/gtest.h>

#include <thread>

#ifdef _WIN32
#include <windows.h>
#else
#include <sched.h>
#endif

namespace
{

// Leaves this thread (on Windows: this process) one processor, for as long as the object lives.
class CSingleProcessor
{
public:
#ifdef _WIN32
    CSingleProcessor()
    {
        DWORD_PTR uSystem = 0;
        GetProcessAffinityMask(GetCurrentProcess(), &m_Before, &uSystem);
        SetProcessAffinityMask(GetCurrentProcess(), m_Before & (~m_Before + 1)); // the lowest bit
    }
    ~CSingleProcessor()
    {
        SetProcessAffinityMask(GetCurrentProcess(), m_Before);
    }

private:
    DWORD_PTR m_Before = 0;
#else
    CSingleProcessor()
    {
        sched_getaffinity(0, sizeof m_Before, &m_Before);
        int processor = 0;
        while (!CPU_ISSET(processor, &m_Before))
        {
            ++processor;
        }
        cpu_set_t one;
        CPU_ZERO(&one);
        CPU_SET(processor, &one);
        sched_setaffinity(0, sizeof one, &one);
    }
    ~CSingleProcessor()
    {
        sched_setaffinity(0, sizeof m_Before, &m_Before);
    }

private:
    cpu_set_t m_Before{};
#endif
};

TEST(CountProcessors, ThereAreAtMostThoseOfTheMachine)
{
    EXPECT_GE(CountUsableProcessors(), 1);
    EXPECT_LE(CountUsableProcessors(), static_cast<int>(std::thread::hardware_concurrency()));
}

TEST(CountProcessors, OnlyThoseOfTheAffinityCount)
{
    const CSingleProcessor single;
    EXPECT_EQ(CountUsableProcessors(), 1);
}

} // namespace
