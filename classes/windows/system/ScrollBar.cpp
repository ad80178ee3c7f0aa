#include "classes/windows/system/ScrollBar.h"

namespace
{
// The rules use these numbers for the requests.
static_assert(SB_LINEUP == static_cast<unsigned>(EnumScrollRequest::LineUp));
static_assert(SB_LINEDOWN == static_cast<unsigned>(EnumScrollRequest::LineDown));
static_assert(SB_PAGEUP == static_cast<unsigned>(EnumScrollRequest::PageUp));
static_assert(SB_PAGEDOWN == static_cast<unsigned>(EnumScrollRequest::PageDown));
static_assert(SB_THUMBPOSITION == static_cast<unsigned>(EnumScrollRequest::ThumbPosition));
static_assert(SB_THUMBTRACK == static_cast<unsigned>(EnumScrollRequest::ThumbTrack));
static_assert(SB_TOP == static_cast<unsigned>(EnumScrollRequest::Top));
static_assert(SB_BOTTOM == static_cast<unsigned>(EnumScrollRequest::Bottom));
static_assert(SB_ENDSCROLL == static_cast<unsigned>(EnumScrollRequest::EndScroll));

SCROLLINFO MakeScrollInfo(UINT uMask)
{
    SCROLLINFO info{};
    info.cbSize = sizeof(info);
    info.fMask = uMask;
    return info;
}
} // namespace

CScrollBarState ReadScrollBar(HWND hWnd, int iBar)
{
    SCROLLINFO info = MakeScrollInfo(SIF_ALL);
    GetScrollInfo(hWnd, iBar, &info);
    return CScrollBarState{info.nMin, info.nMax, static_cast<int>(info.nPage), info.nPos, info.nTrackPos};
}

void WriteScrollBar(HWND hWnd, int iBar, const CScrollBarState& bar)
{
    SCROLLINFO info = MakeScrollInfo(SIF_RANGE | SIF_PAGE | SIF_POS);
    info.nMin = bar.iMin;
    info.nMax = bar.iMax;
    info.nPage = static_cast<UINT>(bar.iPage);
    info.nPos = bar.iPosition;
    SetScrollInfo(hWnd, iBar, &info, TRUE);
}

void ClearScrollBar(HWND hWnd, int iBar)
{
    SCROLLINFO info = MakeScrollInfo(SIF_RANGE | SIF_PAGE | SIF_POS | SIF_DISABLENOSCROLL);
    SetScrollInfo(hWnd, iBar, &info, FALSE);
}
