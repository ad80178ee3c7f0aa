#include "classes/windows/system/CDisplayMonitors.h"

#include "classes/core/OutputDebugMessage.h"
#include "classes/windows/system/WndProcForward.h"

namespace
{
// Called by the system for each monitor; an exception (no memory) must not pass through its frames.
BOOL CALLBACK AddMonitor(HMONITOR hMonitor, HDC, LPRECT, LPARAM lParam) noexcept
{
    MONITORINFO info{};
    info.cbSize = sizeof(info);
    if (!GetMonitorInfoW(hMonitor, &info))
    {
        return TRUE; // unplugged just now: the others still count
    }
    try
    {
        auto& monitors = *reinterpret_cast<std::vector<CDisplayMonitor>*>(lParam);
        monitors.push_back({info.rcMonitor, (info.dwFlags & MONITORINFOF_PRIMARY) != 0});
    }
    catch (...)
    {
        ReportWindowException(nullptr);
        return FALSE;
    }
    return TRUE;
}
} // namespace

bool CDisplayMonitors::GetDisplayMonitors(std::wstring* pDebugLog)
{
    m_monitors.clear();
    EnumDisplayMonitors(nullptr, nullptr, AddMonitor, reinterpret_cast<LPARAM>(&m_monitors));
    for (std::size_t i = 0; i < m_monitors.size(); ++i)
    {
        const CDisplayMonitor& monitor = m_monitors[i];
        OutputDebugMessage(pDebugLog, L"Display monitor %u = (%i,%i) - (%i,%i)%s\n", static_cast<unsigned>(i),
                           static_cast<int>(monitor.rc.left), static_cast<int>(monitor.rc.top),
                           static_cast<int>(monitor.rc.right), static_cast<int>(monitor.rc.bottom),
                           monitor.bMain ? L" main" : L"");
    }
    return !m_monitors.empty();
}
