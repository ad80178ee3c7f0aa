#include "simulation/CHelperPool.h"

#include "classes/core/CountProcessors.h"
#include "classes/core/ProcessorOfThread.h"
#include "simulation/CHelperPlace.h"

#include <chrono>
#include <system_error>
#include <utility>

namespace
{

constexpr std::uint64_t c_uOneTask = std::uint64_t{1} << 32;
constexpr std::uint64_t c_uOpen = std::uint64_t{1} << 31;

std::uint64_t GetTaskNumber(std::uint64_t uState)
{
    return uState / c_uOneTask;
}

bool IsOpen(std::uint64_t uState)
{
    return (uState & c_uOpen) != 0;
}

std::uint64_t GetHelpersAtWork(std::uint64_t uState)
{
    return uState & (c_uOpen - 1);
}

} // namespace

CHelperPool::CHelperPool(int helpers)
{
    m_Helpers.reserve(static_cast<std::size_t>(helpers));
    const bool bEnoughProcessors = helpers < CountUsableProcessors();
    try
    {
        for (int helper = 0; helper < helpers; ++helper)
        {
            m_Helpers.emplace_back([this, bEnoughProcessors] { Help(bEnoughProcessors); });
        }
    }
    catch (const std::system_error&)
    {
        // The simulation goes on with the threads that there are.
    }
}

CHelperPool::~CHelperPool()
{
    m_bEnding = true;
    m_Waiting.Announce();
}

void CHelperPool::RunTask(const CTask& task)
{
    m_Task = task;
    m_iCallersProcessor.store(GetProcessorOfThread(), std::memory_order_relaxed);
    m_uState = (GetTaskNumber(m_uState) + 1) * c_uOneTask | c_uOpen;
    m_Waiting.Announce();
    Call();
    m_uState &= ~c_uOpen;
    m_Waiting.Await([this] { return GetHelpersAtWork(m_uState) == 0; });
    if (m_pError)
    {
        std::rethrow_exception(std::exchange(m_pError, nullptr));
    }
}

void CHelperPool::Call() noexcept
{
    try
    {
        m_Task.pCall(m_Task.pTask);
    }
    catch (...)
    {
        const std::lock_guard lock(m_ErrorMutex);
        if (!m_pError)
        {
            m_pError = std::current_exception();
        }
    }
}

// The body of a helper.
void CHelperPool::Help(bool bEnoughProcessors) noexcept
{
    CHelperPlace place(bEnoughProcessors);
    std::uint64_t uSeen = 0;
    for (;;)
    {
        m_Waiting.Await([this, &uSeen] {
            const std::uint64_t uState = m_uState;
            return m_bEnding || (IsOpen(uState) && GetTaskNumber(uState) != uSeen);
        });
        if (m_bEnding)
        {
            return;
        }
        LeaveProcessorOfCaller(place);
        if (Join(uSeen))
        {
            Call();
            Leave();
        }
    }
}

// Before this helper is counted in: on the other processor it may have to wait for another program, and the caller need
// not wait for a helper that has not begun.
void CHelperPool::LeaveProcessorOfCaller(CHelperPlace& place) noexcept
{
    const int processor = m_iCallersProcessor.load(std::memory_order_relaxed);
    if (place.MustChange(processor, GetProcessorOfThread()))
    {
        const auto start = std::chrono::steady_clock::now();
        LeaveProcessor(processor);
        place.NoteChange(std::chrono::steady_clock::now() - start);
    }
}

// Counts this helper in if the present task is still open, and notes its number.
bool CHelperPool::Join(std::uint64_t& uSeen) noexcept
{
    std::uint64_t uState = m_uState;
    while (IsOpen(uState) && GetTaskNumber(uState) != uSeen)
    {
        if (m_uState.compare_exchange_weak(uState, uState + 1))
        {
            uSeen = GetTaskNumber(uState);
            return true;
        }
    }
    return false;
}

void CHelperPool::Leave() noexcept
{
    if (GetHelpersAtWork(--m_uState) == 0)
    {
        m_Waiting.Announce();
    }
}
