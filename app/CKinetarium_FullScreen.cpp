#include "app/CKinetarium.h"
#include "app/WindowStateRules.h"
#include "classes/windows/system/RectHelpers.h"
#include "diagnostics/Guard.h"

// Full screen: a frameless window over one monitor that shows nothing but the world. First the handlers that request
// it, then the change itself.

namespace
{
constexpr WPARAM c_uSystemCommandBits = 0xFFF0; // the system uses the low four bits itself
} // namespace

std::optional<LRESULT> CKinetarium::On_KeyUp(WPARAM wParam, LPARAM)
{
    if (wParam != VK_F11 && wParam != VK_ESCAPE)
    {
        return std::nullopt;
    }
    if (wParam == VK_F11)
    {
        ToggleFullscreen();
    }
    else
    {
        LeaveFullscreen();
    }
    return 0;
}

std::optional<LRESULT> CKinetarium::On_SysCommand(WPARAM wParam, LPARAM)
{
    const WPARAM uCommand = wParam & c_uSystemCommandBits;
    if (uCommand != SC_MAXIMIZE && uCommand != SC_RESTORE)
    {
        return std::nullopt;
    }
    const bool bMaximise = uCommand == SC_MAXIMIZE;
    const CWindowState state{IsIconic(m_hWnd) != FALSE, IsZoomed(m_hWnd) != FALSE, m_bFullscreen};
    // Only what changes full screen has to wait: a minimised window comes back from the task bar at once.
    const bool bMayWait = bMaximise || !state.bMinimised;
    if (bMayWait &&
        m_StopGate.Defer_FullScreen(bMaximise ? EnumFullScreenRequest::Maximise : EnumFullScreenRequest::Restore))
    {
        return 0;
    }
    switch (bMaximise ? GetMeaningOfMaximise(state) : GetMeaningOfRestore(state))
    {
    case EnumWindowChange::Nothing:
        break;
    case EnumWindowChange::SystemDefault:
        return std::nullopt;
    case EnumWindowChange::ShowAgain:
        ShowWindow(m_hWnd, SW_RESTORE);
        break;
    case EnumWindowChange::EnterFullScreen:
    case EnumWindowChange::LeaveFullScreen:
        ToggleFullscreen();
        break;
    }
    return 0;
}

std::optional<LRESULT> CKinetarium::On_RightButtonUp(WPARAM, LPARAM)
{
    ToggleFullscreen();
    return 0;
}

// A request that had to wait. The window may have changed since, so the request is made anew.
std::optional<LRESULT> CKinetarium::On_DeferredFullScreen(WPARAM wParam, LPARAM)
{
    switch (static_cast<EnumFullScreenRequest>(wParam))
    {
    case EnumFullScreenRequest::None:
        break;
    case EnumFullScreenRequest::Toggle:
        ToggleFullscreen();
        break;
    case EnumFullScreenRequest::Leave:
        LeaveFullscreen();
        break;
    case EnumFullScreenRequest::Maximise:
        SendMessageW(m_hWnd, WM_SYSCOMMAND, SC_MAXIMIZE, 0);
        break;
    case EnumFullScreenRequest::Restore:
        SendMessageW(m_hWnd, WM_SYSCOMMAND, SC_RESTORE, 0);
        break;
    }
    return 0;
}

// Does nothing in a framed window.
void CKinetarium::LeaveFullscreen()
{
    if (!m_StopGate.Defer_FullScreen(EnumFullScreenRequest::Leave) && m_bFullscreen)
    {
        ToggleFullscreen();
    }
}

void CKinetarium::ToggleFullscreen()
{
    Traced({m_pDebugLog, __TIMESTAMP__}, [&] {
        if (m_StopGate.Defer_FullScreen(EnumFullScreenRequest::Toggle))
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
        // The size of the world depends on full screen, so both directions start a new one.
        StartSimulation(nullptr);
        // A start that finds a wrong factor leaves the old world in the view.
        m_pWorldView->SetScrolling(!m_bFullscreen);
    });
}

void CKinetarium::ToggleFullscreen_Leave()
{
    StopSimulation();
    // The system remembers of a minimised window whether it was maximised, and would maximise the framed one.
    if (IsIconic(m_hWnd))
    {
        ShowWindow(m_hWnd, SW_RESTORE);
    }
    // Cleared before the size changes, so that the parts are laid out before they are shown.
    m_bFullscreen = false;
    // Another program may have maximised the window in full screen: it would keep that size without a frame.
    const LONG lStyle = GetWindowLongW(m_hWnd, GWL_STYLE) & ~static_cast<LONG>(WS_MAXIMIZE);
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
    // Leaving full screen never minimises.
    const bool bMaximised = placement.showCmd == SW_SHOWMAXIMIZED ||
                            (placement.showCmd == SW_SHOWMINIMIZED && (placement.flags & WPF_RESTORETOMAXIMIZED) != 0);
    placement.showCmd = bMaximised ? SW_SHOWMAXIMIZED : SW_SHOWNORMAL;
    m_WindowPlacement = placement;

    StopSimulation();
    // Set before the size changes, which lays the window out: otherwise the panel would jump to the screen's edge
    // first.
    m_bFullscreen = true;
    ShowWindow(m_hStatusBar, SW_HIDE);
    ShowWindow(m_pDataCtrlGroup->GetWindowHandle(), SW_HIDE);
    ShowWindow(m_StartButton.GetWindowHandle(), SW_HIDE);
    m_pWorldView->SetScrolling(false);
    // A minimised window keeps a client area of 0 x 0 whatever its size. A message that the stop has dispatched may
    // have minimised it too.
    if (IsIconic(m_hWnd))
    {
        ShowWindow(m_hWnd, SW_RESTORE);
    }
    const LONG lStyle = GetWindowLongW(m_hWnd, GWL_STYLE);
    // A window that still counts as maximised would not be maximised anew when it leaves full screen.
    SetWindowLongW(m_hWnd, GWL_STYLE, lStyle & ~static_cast<LONG>(WS_OVERLAPPEDWINDOW | WS_MAXIMIZE));
    const RECT& rc = monitor.rcMonitor;
    SetWindowPos(m_hWnd, HWND_TOP, rc.left, rc.top, rc.right - rc.left, rc.bottom - rc.top,
                 SWP_NOOWNERZORDER | SWP_FRAMECHANGED);
    return true;
}

// The window may have been minimised since it has entered full screen: it then has the size to which it is restored.
// Without a frame, a window and its client area are of one size.
CSize<int> CKinetarium::GetFullScreenSize() const
{
    RECT rc{};
    GetClientRect(m_hWnd, &rc);
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    if (IsIconic(m_hWnd) && GetWindowPlacement(m_hWnd, &placement))
    {
        rc = placement.rcNormalPosition;
    }
    return {GetRectWidth(rc), GetRectHeight(rc)};
}
