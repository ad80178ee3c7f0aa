#include "app/CKinetarium.h"
#include "app/WindowStateRules.h"
#include "classes/windows/system/CPathTurn.h"
#include "classes/windows/system/RectHelpers.h"
#include "settings/SettingsFile.h"

#include <array>
#include <cstdint>

// The end of the window or of the session. Both save the settings and the window's rectangle first.

std::optional<LRESULT> CKinetarium::On_Close(WPARAM, LPARAM)
{
    if (m_StopGate.Defer_Close())
    {
        return 0;
    }
    Settings_Save();
    SaveWindowRectangle();
    StopSimulation();
    ShowWindow(m_hWnd, SW_HIDE);
    m_bInitialised = false;
    return std::nullopt; // the default destroys the window
}

// The system may end the process as soon as this returns, without WM_CLOSE: the settings must be saved by then.
std::optional<LRESULT> CKinetarium::On_EndSession(WPARAM wParam, LPARAM)
{
    if (wParam != 0)
    {
        Settings_Save();
        SaveWindowRectangle();
        StopSimulation();
    }
    return std::nullopt;
}

// That of the framed window when it is neither minimised nor maximised. Outside full screen it restores the window.
CRect CKinetarium::SaveWindowRectangle_Measure()
{
    if (m_bFullscreen)
    {
        const RECT& rcPlacement = m_WindowPlacement.rcNormalPosition;
        MONITORINFO monitor{};
        monitor.cbSize = sizeof monitor;
        if (!GetMonitorInfoW(MonitorFromRect(&rcPlacement, MONITOR_DEFAULTTONEAREST), &monitor))
        {
            return ToRect(rcPlacement);
        }
        return GetPlacementOnScreen(ToRect(rcPlacement), ToRect(monitor.rcMonitor), ToRect(monitor.rcWork));
    }
    ShowWindow(m_hWnd, SW_RESTORE);
    if (IsZoomed(m_hWnd))
    {
        ShowWindow(m_hWnd, SW_RESTORE); // it was maximised when it was minimised
    }
    RECT rcWindow{};
    GetWindowRect(m_hWnd, &rcWindow);
    return ToRect(rcWindow);
}

void CKinetarium::SaveWindowRectangle()
{
    const CRect window = SaveWindowRectangle_Measure();
    const CPathTurn turn(m_sIniPath, SettingsFile::c_uPatience);
    if (!turn.MayWrite())
    {
        return;
    }
    const std::array<int, 4> edges{window.left, window.top, window.right, window.bottom};
    for (std::size_t i = 0; i < edges.size(); ++i)
    {
        Settings_Write(SettingsFile::c_sWindowKeys[i], CWString(static_cast<std::int64_t>(edges[i])));
    }
}

std::optional<LRESULT> CKinetarium::On_Destroy(WPARAM, LPARAM)
{
    m_bInitialised = false;
    m_bClosed = true;
    PostQuitMessage(0);
    return 0;
}
