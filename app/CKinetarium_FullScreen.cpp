#include "app/CKinetarium.h"
#include "diagnostics/Guard.h"

// Full screen: a frameless window over one monitor that shows nothing but the world.

void CKinetarium::ToggleFullscreen()
{
    Traced({m_pDebugLog, __TIMESTAMP__}, [&] {
        if (m_StopGate.Defer_ToggleFullScreen())
        {
            return;
        }
        {
            const CChangeOfWorld change(*this);
            if (m_bFullscreen)
            {
                ToggleFullscreen_Leave();
            }
            else if (!ToggleFullscreen_Enter())
            {
                return;
            }

            SetControlPositions(-1, -1);
            OperateMessagePump(nullptr);
        }
        // The world follows the window, so it is always made anew.
        StartSimulation(nullptr);
    });
}

void CKinetarium::ToggleFullscreen_Leave()
{
    StopSimulation();
    // From here on the window is laid out as a framed one: its parts are in their places when they are shown.
    m_bFullscreen = false;
    const LONG lStyle = GetWindowLongW(m_hWnd, GWL_STYLE);
    SetWindowLongW(m_hWnd, GWL_STYLE, lStyle | static_cast<LONG>(WS_OVERLAPPEDWINDOW));
    SetWindowPlacement(m_hWnd, &m_WindowPlacement);
    SetWindowPos(m_hWnd, nullptr, 0, 0, 0, 0,
                 SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOOWNERZORDER | SWP_FRAMECHANGED);
    ShowWindow(m_hStatusBar, SW_SHOW);
    ShowWindow(m_pDataCtrlGroup->GetWindowHandle(), SW_SHOW);
    ShowWindow(m_StartButton.GetWindowHandle(), SW_SHOW);
}

bool CKinetarium::ToggleFullscreen_Enter()
{
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    if (!GetWindowPlacement(m_hWnd, &placement))
    {
        return false;
    }
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    if (!GetMonitorInfoW(MonitorFromWindow(m_hWnd, MONITOR_DEFAULTTOPRIMARY), &monitor))
    {
        return false;
    }
    m_WindowPlacement = placement;

    StopSimulation();
    // The change of size lays the window out. Were the panel still there, it would jump to the screen's edge first.
    m_bFullscreen = true;
    ShowWindow(m_hStatusBar, SW_HIDE);
    ShowWindow(m_pDataCtrlGroup->GetWindowHandle(), SW_HIDE);
    ShowWindow(m_StartButton.GetWindowHandle(), SW_HIDE);
    const LONG lStyle = GetWindowLongW(m_hWnd, GWL_STYLE);
    SetWindowLongW(m_hWnd, GWL_STYLE, lStyle & ~static_cast<LONG>(WS_OVERLAPPEDWINDOW));
    const RECT& rc = monitor.rcMonitor;
    SetWindowPos(m_hWnd, HWND_TOP, rc.left, rc.top, rc.right - rc.left, rc.bottom - rc.top,
                 SWP_NOOWNERZORDER | SWP_FRAMECHANGED);
    return true;
}
