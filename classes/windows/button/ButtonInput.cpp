// Handles mouse, keyboard and focus: a part of CWndButton with a file of its own.
#include "classes/windows/button/CWndButton.h"
#include "classes/windows/system/RectHelpers.h"

namespace
{
constexpr LPARAM c_iRepeated = LPARAM{1} << 30; // the bit of a key message that says the key was down before
} // namespace

std::optional<LRESULT> CWndButton::On_LButtonDown(WPARAM, LPARAM)
{
    SetFocus(m_hWnd);
    SetCapture(m_hWnd);
    m_bMouseDown = true;
    SetPressed(true);
    return 0;
}

std::optional<LRESULT> CWndButton::On_LButtonUp(WPARAM, LPARAM lParam)
{
    if (!m_bMouseDown)
    {
        return 0;
    }
    RECT rcClient{};
    GetClientRect(m_hWnd, &rcClient);
    const POINT pt{static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
    ReleaseCapture(); // ends the press
    if (PointInRect(rcClient, pt))
    {
        Click();
    }
    return 0;
}

std::optional<LRESULT> CWndButton::On_MouseMove(WPARAM, LPARAM lParam)
{
    RECT rcClient{};
    GetClientRect(m_hWnd, &rcClient);
    const POINT pt{static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
    if (m_bMouseDown)
    {
        SetPressed(PointInRect(rcClient, pt));
    }
    if (!m_bHover)
    {
        TRACKMOUSEEVENT track{};
        track.cbSize = sizeof(track);
        track.dwFlags = TME_LEAVE;
        track.hwndTrack = m_hWnd;
        TrackMouseEvent(&track);
        m_bHover = true;
        Invalidate();
    }
    return 0;
}

std::optional<LRESULT> CWndButton::On_MouseLeave(WPARAM, LPARAM)
{
    m_bHover = false;
    Invalidate();
    return 0;
}

std::optional<LRESULT> CWndButton::On_CaptureChanged(WPARAM, LPARAM)
{
    m_bMouseDown = false;
    SetPressed(false);
    return 0;
}

// Sent before the button is disabled, while it still has the focus: see On_Enable.
std::optional<LRESULT> CWndButton::On_CancelMode(WPARAM, LPARAM)
{
    m_bFocusLost = GetFocus() == m_hWnd;
    m_bSpaceDown = false;
    SetPressed(false);
    return std::nullopt; // the system releases the mouse
}

std::optional<LRESULT> CWndButton::On_KeyDown(WPARAM wParam, LPARAM lParam)
{
    if ((lParam & c_iRepeated) != 0)
    {
        return wParam == VK_SPACE || wParam == VK_RETURN ? std::optional<LRESULT>(0) : std::nullopt;
    }
    if (wParam == VK_SPACE)
    {
        m_bSpaceDown = true;
        SetPressed(true);
        return 0;
    }
    if (wParam == VK_RETURN)
    {
        Click();
        return 0;
    }
    return std::nullopt;
}

std::optional<LRESULT> CWndButton::On_KeyUp(WPARAM wParam, LPARAM)
{
    if (wParam != VK_SPACE)
    {
        return std::nullopt;
    }
    const bool bClick = m_bSpaceDown;
    m_bSpaceDown = false;
    SetPressed(false);
    if (bClick)
    {
        Click();
    }
    return 0;
}

// Tells the panel, which brings the row into view when its control gets the focus.
std::optional<LRESULT> CWndButton::On_SetFocus(WPARAM, LPARAM)
{
    Invalidate();
    NMHDR header{};
    header.hwndFrom = m_hWnd;
    header.idFrom = static_cast<UINT_PTR>(GetDlgCtrlID(m_hWnd));
    header.code = c_uButtonFocused;
    SendMessageW(GetParent(m_hWnd), WM_NOTIFY, header.idFrom, reinterpret_cast<LPARAM>(&header));
    return 0;
}

std::optional<LRESULT> CWndButton::On_KillFocus(WPARAM, LPARAM)
{
    m_bSpaceDown = false;
    SetPressed(false);
    Invalidate();
    return 0;
}

// If a window is disabled while it has the focus, no window has the focus and no key reaches the program. So the main
// window takes the focus meanwhile. The button gets it back unless it has moved on.
std::optional<LRESULT> CWndButton::On_Enable(WPARAM wParam, LPARAM)
{
    const HWND hMain = GetAncestor(m_hWnd, GA_ROOT);
    const HWND hFocus = GetFocus();
    if (wParam == FALSE && m_bFocusLost && (hFocus == nullptr || hFocus == m_hWnd))
    {
        SetFocus(hMain);
    }
    else if (wParam != FALSE && m_bFocusLost && hFocus == hMain)
    {
        SetFocus(m_hWnd);
    }
    if (wParam != FALSE)
    {
        m_bFocusLost = false;
    }
    Invalidate();
    return 0;
}
