#include "app/CKinetarium.h"
#include "classes/core/OutputDebugMessage.h"
#include "classes/windows/system/ShowSetTimer.h"
#include "diagnostics/Guard.h"
#include "diagnostics/PruneDebugLog.h"

#include <mutex>

// The clock in the status bar, and the pruning of the debug log.

namespace
{
constexpr UINT_PTR c_uClockTimer = 1;
constexpr UINT c_uClockPeriod = 1000; // ms
constexpr UINT_PTR c_uPruneTimer = 2;
constexpr UINT c_uPrunePeriod = 10000; // ms
} // namespace

void CKinetarium::InitializeWindow_Timers()
{
    ShowSetTimer(m_hWnd, c_uClockTimer, c_uClockPeriod, nullptr, m_pDebugLog, this, L"CKinetarium::CLOCK_TIMER");
    if (m_pDebugLog != nullptr)
    {
        ShowSetTimer(m_hWnd, c_uPruneTimer, c_uPrunePeriod, nullptr, m_pDebugLog, this,
                     L"CKinetarium::DEBUG_LOG_PRUNE_TIMER");
    }
}

std::optional<LRESULT> CKinetarium::On_Timer(WPARAM wParam, LPARAM)
{
    if (wParam == c_uClockTimer)
    {
        UpdateStatusBarClock(false, false);
        return 0;
    }
    if (wParam != c_uPruneTimer)
    {
        return std::nullopt;
    }
    if (m_pDebugLog != nullptr && IsDebugLogFull())
    {
        PruneDebugLog(static_cast<unsigned>(m_pDebugLog->capacity() / 2));
    }
    return 0;
}

// Locks the log, because the worker may be writing to it.
bool CKinetarium::IsDebugLogFull() const
{
    const std::lock_guard lock(DebugLog_GetMutex());
    return NeedsPruning(m_pDebugLog->length(), m_pDebugLog->capacity());
}

void CKinetarium::PruneDebugLog(unsigned uKeep)
{
    Traced({m_pDebugLog, __TIMESTAMP__}, [&] {
        if (m_pDebugLog != nullptr)
        {
            ::PruneDebugLog(*m_pDebugLog, uKeep);
        }
    });
}
