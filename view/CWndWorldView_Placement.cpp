#include "view/CWndWorldView.h"

#include "classes/windows/RectHelpers.h"
#include "diagnostics/Guard.h"
#include "view/ScrollBar.h"

#include <utility>

namespace
{

constexpr int c_iUseClientArea = -1;

// The rules know the requests by these numbers.
static_assert(SB_LINEUP == static_cast<unsigned>(EnumScrollRequest::LineUp));
static_assert(SB_LINEDOWN == static_cast<unsigned>(EnumScrollRequest::LineDown));
static_assert(SB_PAGEUP == static_cast<unsigned>(EnumScrollRequest::PageUp));
static_assert(SB_PAGEDOWN == static_cast<unsigned>(EnumScrollRequest::PageDown));
static_assert(SB_THUMBPOSITION == static_cast<unsigned>(EnumScrollRequest::ThumbPosition));
static_assert(SB_THUMBTRACK == static_cast<unsigned>(EnumScrollRequest::ThumbTrack));
static_assert(SB_TOP == static_cast<unsigned>(EnumScrollRequest::Top));
static_assert(SB_BOTTOM == static_cast<unsigned>(EnumScrollRequest::Bottom));
static_assert(SB_ENDSCROLL == static_cast<unsigned>(EnumScrollRequest::EndScroll));

} // namespace

void CWndWorldView::SetControlPositions(int cx, int cy)
{
    Traced({m_pDebugLog, __TIMESTAMP__}, [&] {
        if (!m_bWindowReady)
        {
            return;
        }
        const bool bUseClientArea = cx == c_iUseClientArea || cy == c_iUseClientArea;
        const CSize<int> sizeClient = bUseClientArea ? GetClientSize() : CSize<int>{cx, cy};
        const RECT rcWorld =
            ToRECT(m_bNoScrolling ? PlaceWorld_NoScrolling(sizeClient) : PlaceWorld_Scrolling(sizeClient));
        m_picWorld.SetDrawingRect(&rcWorld);
    });
}

CRect CWndWorldView::PlaceWorld_NoScrolling(const CSize<int>& sizeClient)
{
    m_painterDirect2D.Resize(SIZE{sizeClient.cx, sizeClient.cy});
    return PlaceWorld_Centred(m_sizeWorld, sizeClient);
}

// Showing or hiding a bar changes the client area, and the system says so at once: this is entered again from within,
// does all its work there, and then ends here with the sizes of the outer call.
CRect CWndWorldView::PlaceWorld_Scrolling(const CSize<int>& sizeClient)
{
    const CScrollBarsShown shown = GetScrollBarsShown(m_sizeWorld, sizeClient);
    ShowScrollBars(shown);
    CScrolledView view;
    view.sizeBefore = sizeClient;
    view.iVerticalPosition = shown.bVertical ? FitBar(SB_VERT, m_sizeWorld.cy, sizeClient.cy) : 0;
    view.iHorizontalPosition = shown.bHorizontal ? FitBar(SB_HORZ, m_sizeWorld.cx, sizeClient.cx) : 0;
    view.sizeAfter = GetClientSize();
    m_painterDirect2D.Resize(SIZE{view.sizeAfter.cx, view.sizeAfter.cy});
    return PlaceWorld_Scrolled(m_sizeWorld, view);
}

// A frame that has not changed is left alone: telling the system that it has would erase the whole view once more.
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
    // The system erases at once, but the world has no place yet: its frame is drawn by whoever asked for the place.
    const bool bOuter = std::exchange(m_bChangingBars, true);
    SetWindowLongPtrW(m_hWnd, GWL_STYLE, iStyle);
    SetWindowPos(m_hWnd, nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_FRAMECHANGED);
    m_bChangingBars = bOuter;
}

// Returns the position that was stored.
int CWndWorldView::FitBar(int iBar, int iWorldLength, int iClientLength)
{
    const CScrollBarState bar = FitScrollBar(ReadScrollBar(m_hWnd, iBar), iWorldLength, iClientLength);
    WriteScrollBar(m_hWnd, iBar, bar);
    return bar.iPosition;
}

CSize<int> CWndWorldView::GetClientSize() const
{
    RECT rcClient{};
    GetClientRect(m_hWnd, &rcClient);
    return CSize<int>{rcClient.right, rcClient.bottom};
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
    CScrollBarState bar = ReadScrollBar(m_hWnd, iBar);
    const std::optional<int> iPosition = GetScrolledPosition(bar, uRequest);
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
        if (m_bNoScrolling)
        {
            return;
        }
        CScrollBarState bar = ReadScrollBar(m_hWnd, SB_VERT);
        bar.iPosition = GetWheelPosition(bar.iPosition, iDelta);
        WriteScrollBar(m_hWnd, SB_VERT, bar);
        RedrawWorld();
    });
}
