#include "view/CWndWorldView.h"

#include "classes/core/CFlagScope.h"
#include "classes/windows/system/RectHelpers.h"
#include "classes/windows/system/ScrollBar.h"
#include "diagnostics/Guard.h"

namespace
{

constexpr int c_iUseClientArea = -1;

} // namespace

void CWndWorldView::SetControlPositions(int cx, int cy)
{
    Traced({m_pDebugLog, __TIMESTAMP__}, [&] {
        if (!m_bWindowReady)
        {
            return;
        }
        const bool bMeasure = cx == c_iUseClientArea || cy == c_iUseClientArea;
        const CSize<int> sizeGiven{cx, cy};
        const RECT rcWorld = ToRECT(m_bNoScrolling ? PlaceWorld_NoScrolling(bMeasure ? GetClientSize() : sizeGiven)
                                                   : PlaceWorld_Scrolling(bMeasure ? GetSizeWithoutBars() : sizeGiven));
        m_picWorld.SetDrawingRect(&rcWorld);
    });
}

void CWndWorldView::SetScrolling(bool bScrolling)
{
    Traced({m_pDebugLog, __TIMESTAMP__}, [&] {
        if (m_bWindowReady && bScrolling == m_bNoScrolling)
        {
            UseScrolling(bScrolling);
            SetControlPositions(c_iUseClientArea, c_iUseClientArea);
            InvalidateRect(m_hWnd, nullptr, TRUE);
        }
    });
}

// The bars go before the world is placed without them; they come back when the world is placed with scrolling.
void CWndWorldView::UseScrolling(bool bScrolling)
{
    m_bNoScrolling = !bScrolling;
    if (m_bNoScrolling && m_bWindowReady)
    {
        ShowScrollBars({});
    }
}

CRect CWndWorldView::PlaceWorld_NoScrolling(const CSize<int>& sizeClient)
{
    m_painterDirect2D.Resize(SIZE{sizeClient.cx, sizeClient.cy});
    return PlaceWorld_Centred(m_sizeWorld, sizeClient);
}

// Showing or hiding a bar changes the client area, and the system sends WM_SIZE at once. So this function calls itself
// indirectly. The inner call comes to the same result, and the outer one ends after it.
CRect CWndWorldView::PlaceWorld_Scrolling(const CSize<int>& sizeView)
{
    CScrolledView view;
    view.shown = GetScrollBarsShown(m_sizeWorld, sizeView, GetBarSizes());
    ShowScrollBars(view.shown);
    view.sizeClient = GetClientSize();
    view.iVerticalPosition = view.shown.bVertical ? FitBar(SB_VERT, m_sizeWorld.cy, view.sizeClient.cy) : 0;
    view.iHorizontalPosition = view.shown.bHorizontal ? FitBar(SB_HORZ, m_sizeWorld.cx, view.sizeClient.cx) : 0;
    m_painterDirect2D.Resize(SIZE{view.sizeClient.cx, view.sizeClient.cy});
    return PlaceWorld_Scrolled(m_sizeWorld, view);
}

// Does nothing if the bars stay the same: SWP_FRAMECHANGED would erase the whole view once more.
void CWndWorldView::ShowScrollBars(const CScrollBarsShown& shown)
{
    const LONG_PTR iOldStyle = GetWindowLongPtrW(m_hWnd, GWL_STYLE);
    LONG_PTR iStyle = iOldStyle & ~static_cast<LONG_PTR>(WS_VSCROLL | WS_HSCROLL);
    iStyle |= shown.bVertical ? WS_VSCROLL : 0;
    iStyle |= shown.bHorizontal ? WS_HSCROLL : 0;
    if (iStyle == iOldStyle)
    {
        return;
    }
    // The system sends WM_ERASEBKGND at once, before the world is placed. No frame is drawn for it: the caller of
    // SetControlPositions draws one afterwards.
    const CFlagScope changingBars(m_bChangingBars);
    SetWindowLongPtrW(m_hWnd, GWL_STYLE, iStyle);
    SetWindowPos(m_hWnd, nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_FRAMECHANGED);
}

// Returns how many pixels of the world the bar hides at the left or at the top.
int CWndWorldView::FitBar(int iBar, int iWorldLength, int iClientLength)
{
    const bool bFromRight = iBar == SB_HORZ && m_StringResource.IsRightToLeft();
    const CScrollBarState old = ReadScrollBar(m_hWnd, iBar);
    const CScrollBarState bar = FitScrollBar(bFromRight ? MirrorScrollBar(old) : old, iWorldLength, iClientLength);
    WriteScrollBar(m_hWnd, iBar, bFromRight ? MirrorScrollBar(bar) : bar);
    return bar.iPosition;
}

CSize<int> CWndWorldView::GetClientSize() const
{
    RECT rcClient{};
    GetClientRect(m_hWnd, &rcClient);
    return CSize<int>{rcClient.right, rcClient.bottom};
}

CSize<int> CWndWorldView::GetBarSizes()
{
    return CSize<int>{GetSystemMetrics(SM_CXVSCROLL), GetSystemMetrics(SM_CYHSCROLL)};
}

bool CWndWorldView::HasBar(int iBar) const
{
    const LONG_PTR iBarStyle = iBar == SB_VERT ? WS_VSCROLL : WS_HSCROLL;
    return (GetWindowLongPtrW(m_hWnd, GWL_STYLE) & iBarStyle) != 0;
}

// The client area as it would be without the bars that are shown now.
CSize<int> CWndWorldView::GetSizeWithoutBars() const
{
    const LONG_PTR iStyle = GetWindowLongPtrW(m_hWnd, GWL_STYLE);
    const CSize<int> sizeBars = GetBarSizes();
    CSize<int> size = GetClientSize();
    size.cx += (iStyle & WS_VSCROLL) != 0 ? sizeBars.cx : 0;
    size.cy += (iStyle & WS_HSCROLL) != 0 ? sizeBars.cy : 0;
    return size;
}

CRect CWndWorldView::GetWorldRect() const
{
    RECT rcWorld{};
    m_picWorld.GetDrawingRect(&rcWorld, false);
    return ToRect(rcWorld);
}

void CWndWorldView::RedrawWorld()
{
    SetControlPositions(c_iUseClientArea, c_iUseClientArea);
    OnEraseBackground();
}

void CWndWorldView::OnScroll(int iBar, unsigned uRequest)
{
    // A thumb that is held when its bar goes still asks. The system would keep the position and perhaps show the bar.
    if (!HasBar(iBar))
    {
        return;
    }
    CScrollBarState bar = ReadScrollBar(m_hWnd, iBar);
    const std::optional<int> iPosition = GetScrolledPosition(bar, uRequest, c_WorldScrollRule);
    if (!iPosition)
    {
        return;
    }
    bar.iPosition = *iPosition;
    WriteScrollBar(m_hWnd, iBar, bar);
    RedrawWorld();
}

void CWndWorldView::OnMouseWheel(short iDelta)
{
    Traced({m_pDebugLog, __TIMESTAMP__}, [&] {
        if (!HasBar(SB_VERT))
        {
            return;
        }
        CScrollBarState bar = ReadScrollBar(m_hWnd, SB_VERT);
        bar.iPosition = GetWheelPosition(bar.iPosition, iDelta);
        WriteScrollBar(m_hWnd, SB_VERT, bar);
        RedrawWorld();
    });
}
