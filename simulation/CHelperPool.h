#pragma once

#include "simulation/CWaitPoint.h"

#include <atomic>
#include <cstdint>
#include <exception>
#include <mutex>
#include <thread>
#include <vector>

class CHelperPlace;

// Threads that help the caller with a task and sleep otherwise. They hold no lock while a task runs.
class CHelperPool
{
public:
    // Starts the helpers; fewer if the system refuses one.
    explicit CHelperPool(int helpers);

    // Ends the helpers and waits for them.
    ~CHelperPool();

    CHelperPool(const CHelperPool&) = delete;
    CHelperPool& operator=(const CHelperPool&) = delete;

    int GetHelperCount() const { return static_cast<int>(m_Helpers.size()); }

    // Calls task() on this thread and on every helper that is there in time, all at once, and returns when all of these
    // calls have. So a call must go on until no work is left: when it returns on this thread, a late helper is not
    // needed. If calls throw, the first exception is thrown here. Allocates nothing.
    template<class Task>
    void Run(const Task& task)
    {
        RunTask({[](const void* pTask) { (*static_cast<const Task*>(pTask))(); }, &task});
    }

private:
    struct CTask
    {
        void (*pCall)(const void* pTask) = nullptr;
        const void* pTask = nullptr;
    };

    void RunTask(const CTask& task);
    void Call() noexcept;
    void Help(bool bEnoughProcessors) noexcept;
    void LeaveProcessorOfCaller(CHelperPlace& place) noexcept;
    bool Join(std::uint64_t& uSeen) noexcept;
    void Leave() noexcept;

    CTask m_Task;
    std::atomic<int> m_iCallersProcessor{-1};
    // The number of the task in the upper half; the lower half counts the helpers at work and has a bit for a task that
    // helpers may join.
    std::atomic<std::uint64_t> m_uState{0};
    std::atomic<bool> m_bEnding{false};
    CWaitPoint m_Waiting;
    std::mutex m_ErrorMutex;
    std::exception_ptr m_pError;
    std::vector<std::jthread> m_Helpers;
};
