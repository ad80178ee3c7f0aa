#pragma once

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <thread>

// A place where threads wait for a condition over atomic variables: they spin briefly, because most waits are shorter
// than the way into sleep and back, and then sleep, so that another program can use the processor.
//
// Whoever makes a condition true stores its variable in sequentially consistent order and then calls Announce. The
// conditions load in the same order. So either the announcer sees the sleeper, or the sleeper sees the new value.
// (std::atomic::wait would do the same, but it hangs now and then in the C++ library of MinGW's GCC 12.)
class CWaitPoint
{
public:
    // Spins for some 10 microseconds and then for up to some 100 more, in which it offers the processor to others. True
    // when the condition holds.
    template<class Condition>
    static bool Spin(Condition isReady)
    {
        for (int turn = 0; turn < c_iSpins + c_iYields; ++turn)
        {
            if (isReady())
            {
                return true;
            }
            if (turn < c_iSpins)
            {
                __builtin_ia32_pause();
            }
            else
            {
                std::this_thread::yield();
            }
        }
        return false;
    }

    // Sleeps until the condition holds.
    template<class Condition>
    void Sleep(Condition isReady)
    {
        std::unique_lock lock(m_Mutex);
        ++m_iSleepers;
        m_Changed.wait(lock, isReady);
        --m_iSleepers;
    }

    template<class Condition>
    void Await(Condition isReady)
    {
        if (!Spin(isReady))
        {
            Sleep(isReady);
        }
    }

    // Wakes all sleepers, which look at their conditions again. Costs one load if nobody sleeps.
    void Announce() noexcept
    {
        if (m_iSleepers == 0)
        {
            return;
        }
        {
            // A thread between its look at the condition and its sleep holds the mutex.
            const std::lock_guard lock(m_Mutex);
        }
        m_Changed.notify_all();
    }

private:
    static constexpr int c_iSpins = 500;  // a pause takes 15 to 50 ns
    static constexpr int c_iYields = 300; // each takes some 0.3 us if no other thread wants the processor

    std::mutex m_Mutex;
    std::condition_variable m_Changed;
    std::atomic<int> m_iSleepers{0};
};
