#include "view/CWndWorldView.h"

#include "diagnostics/Guard.h"

#include <commctrl.h>

#include <algorithm>

namespace
{

// The notification codes of this program's controls are the numbers of mouse messages.
constexpr std::array<UINT, 6> c_forwardedNotifications{WM_LBUTTONDOWN,
                                                       WM_LBUTTONUP,
                                                       WM_RBUTTONDOWN,
                                                       WM_RBUTTONUP,
                                                       static_cast<UINT>(NM_RCLICK),
                                                       static_cast<UINT>(NM_DBLCLK)};

constexpr LRESULT c_iHandled = 0;
constexpr LRESULT c_iErased = 1;    // the system has nothing left to erase
constexpr LRESULT c_iCursorSet = 1; // the system must not set another one

POINT GetPoint(LPARAM lParam)
{
    // Signed: a captured mouse may be left of the window or above it.
    return POINT{static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
}

} // namespace

LRESULT CALLBACK CWndWorldView::WndProcWrapper(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    auto* const pView = reinterpret_cast<CWndWorldView*>(GetWindowLongPtrW(hWnd, GWLP_USERDATA));
    if (pView == nullptr || pView->m_bDestroyed)
    {
        return DefWindowProcW(hWnd, uMessage, wParam, lParam);
    }
    return Guarded({pView->m_pDebugLog, __TIMESTAMP__}, LRESULT{0},
                   [&] { return pView->WndProc(hWnd, uMessage, wParam, lParam); });
}

LRESULT CWndWorldView::WndProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    return Guarded({m_pDebugLog, __TIMESTAMP__}, LRESULT{0},
                   [&] { return DispatchMessage_Table(*this, GetMessageTable(), hWnd, uMessage, wParam, lParam); });
}

const std::array<CMessageEntry<CWndWorldView>, CWndWorldView::c_uMessageCount>& CWndWorldView::GetMessageTable()
{
    using View = CWndWorldView;
    static constexpr std::array<CMessageEntry<View>, c_uMessageCount> c_table{{
        {WM_ERASEBKGND, &View::On_EraseBackground},
        {WM_SETCURSOR, &View::On_SetCursor},
        {WM_SIZE, &View::On_Size},
        {WM_HSCROLL, &View::On_HorizontalScroll},
        {WM_VSCROLL, &View::On_VerticalScroll},
        {WM_MOUSEWHEEL, &View::On_MouseWheel},
        {WM_LBUTTONUP, &View::On_LeftButtonUp},
        {WM_RBUTTONUP, &View::On_RightButtonUp},
        {WM_KEYUP, &View::On_KeyUp},
        {WM_NOTIFY, &View::On_Notify},
        {WM_DESTROY, &View::On_Destroy},
        {c_uDestroyMessage, &View::On_DestroyRequest},
    }};
    return c_table;
}

std::optional<LRESULT> CWndWorldView::On_Destroy(WPARAM, LPARAM)
{
    m_bWindowReady = false;
    m_bDestroyed = true;
    return c_iHandled;
}

std::optional<LRESULT> CWndWorldView::On_Size(WPARAM, LPARAM)
{
    RedrawWorld();
    return c_iHandled;
}

std::optional<LRESULT> CWndWorldView::On_EraseBackground(WPARAM, LPARAM)
{
    if (m_bWindowReady)
    {
        OnEraseBackground();
    }
    return c_iErased;
}

std::optional<LRESULT> CWndWorldView::On_SetCursor(WPARAM, LPARAM)
{
    if (!m_bOwnCursor)
    {
        return std::nullopt;
    }
    SetCursor(m_hOwnCursor);
    return c_iCursorSet;
}

std::optional<LRESULT> CWndWorldView::On_Notify(WPARAM wParam, LPARAM lParam)
{
    const auto* const pHeader = reinterpret_cast<const NMHDR*>(lParam);
    if (pHeader == nullptr || std::find(c_forwardedNotifications.begin(), c_forwardedNotifications.end(),
                                        pHeader->code) == c_forwardedNotifications.end())
    {
        return std::nullopt;
    }
    return SendMessage_Show(GetParentHandle(), WM_NOTIFY, wParam, lParam);
}

std::optional<LRESULT> CWndWorldView::On_KeyUp(WPARAM wParam, LPARAM lParam)
{
    return SendMessageW(GetParentHandle(), WM_KEYUP, wParam, lParam);
}

std::optional<LRESULT> CWndWorldView::On_HorizontalScroll(WPARAM wParam, LPARAM)
{
    OnScroll(SB_HORZ, LOWORD(wParam));
    return c_iHandled;
}

std::optional<LRESULT> CWndWorldView::On_VerticalScroll(WPARAM wParam, LPARAM)
{
    OnScroll(SB_VERT, LOWORD(wParam));
    return c_iHandled;
}

std::optional<LRESULT> CWndWorldView::On_LeftButtonUp(WPARAM wParam, LPARAM lParam)
{
    SetFocus(m_hWnd);
    return ForwardClick(WM_LBUTTONUP, wParam, lParam);
}

std::optional<LRESULT> CWndWorldView::On_RightButtonUp(WPARAM wParam, LPARAM lParam)
{
    return ForwardClick(WM_RBUTTONUP, wParam, lParam);
}

std::optional<LRESULT> CWndWorldView::On_MouseWheel(WPARAM wParam, LPARAM)
{
    OnMouseWheel(static_cast<short>(HIWORD(wParam)));
    return c_iHandled;
}

std::optional<LRESULT> CWndWorldView::On_DestroyRequest(WPARAM, LPARAM)
{
    DestroyWindow(m_hWnd);
    return c_iHandled;
}

HWND CWndWorldView::GetParentHandle() const
{
    return m_pParent != nullptr ? m_pParent->GetWindowHandle() : nullptr;
}

// The parent sees the click in its own client coordinates.
LRESULT CWndWorldView::ForwardClick(UINT uMessage, WPARAM wParam, LPARAM lParam) const
{
    POINT pt = GetPoint(lParam);
    MapWindowPoints(m_hWnd, GetParentHandle(), &pt, 1);
    return SendMessageW(GetParentHandle(), uMessage, wParam, MAKELPARAM(pt.x, pt.y));
}
