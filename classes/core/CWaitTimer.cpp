#include "classes/core/CWaitTimer.h"

#include <chrono>

#ifdef _WIN32
#include <windows.h>
// Must follow windows.h.
#include <timeapi.h>
#else
#include <thread>
#endif

namespace
{

using Clock = std::chrono::steady_clock;

} // namespace

void CWaitTimer::WaitMicroSeconds(std::int64_t llMicroSeconds)
{
    const Clock::time_point deadline = Clock::now() + std::chrono::microseconds(llMicroSeconds);
    for (Clock::duration left = deadline - Clock::now(); left > Clock::duration::zero(); left = deadline - Clock::now())
    {
        SleepMilliSeconds(std::chrono::ceil<std::chrono::milliseconds>(left).count());
    }
}

#ifdef _WIN32

namespace
{

// Windows 10 knows this flag since version 1803; the headers of earlier kits do not name it.
constexpr DWORD c_dwHighResolutionTimer = 0x00000002;

// The finest tick that Windows grants to ordinary timers, in milliseconds.
constexpr UINT c_uTimerPeriodMilliSeconds = 1;

// Waitable timers count in steps of 100 ns; a negative due time is relative to now.
constexpr std::int64_t c_llTimerStepsPerMilliSecond = 10'000;

} // namespace

CWaitTimer::CWaitTimer() : m_hTimer(CreateWaitableTimerExW(nullptr, nullptr, c_dwHighResolutionTimer, TIMER_ALL_ACCESS))
{
    if (m_hTimer)
    {
        return;
    }
    m_hTimer = CKernelHandle(CreateWaitableTimerW(nullptr, FALSE, nullptr));
    m_bTimerPeriodRaised = timeBeginPeriod(c_uTimerPeriodMilliSeconds) == TIMERR_NOERROR;
}

CWaitTimer::~CWaitTimer()
{
    if (m_bTimerPeriodRaised)
    {
        timeEndPeriod(c_uTimerPeriodMilliSeconds);
    }
}

void CWaitTimer::SleepMilliSeconds(std::int64_t llMilliSeconds)
{
    LARGE_INTEGER due{};
    due.QuadPart = -llMilliSeconds * c_llTimerStepsPerMilliSecond;
    if (m_hTimer && SetWaitableTimer(m_hTimer.Get(), &due, 0, nullptr, nullptr, FALSE) != FALSE)
    {
        WaitForSingleObject(m_hTimer.Get(), INFINITE);
    }
    else
    {
        Sleep(static_cast<DWORD>(llMilliSeconds));
    }
}

#else

CWaitTimer::CWaitTimer() = default;
CWaitTimer::~CWaitTimer() = default;

void CWaitTimer::SleepMilliSeconds(std::int64_t llMilliSeconds)
{
    std::this_thread::sleep_for(std::chrono::milliseconds(llMilliSeconds));
}

#endif
