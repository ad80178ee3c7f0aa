#include "view/ScrollBar.h"

namespace
{

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
