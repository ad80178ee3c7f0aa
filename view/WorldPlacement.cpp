#include "view/WorldPlacement.h"

#include "classes/core/SaturateToInt.h"

#include <algorithm>
#include <cstdint>

namespace
{

constexpr int c_iWheelDivisor = 2; // a notch of 120 moves 60 pixels

int Centre(int iClientLength, int iWorldLength)
{
    return SaturateToInt((std::int64_t{iClientLength} - iWorldLength) / 2);
}

CRect MakeWorldRect(int iLeft, int iTop, const CSize<int>& sizeWorld)
{
    return CRect{iLeft, iTop, SaturateToInt(std::int64_t{iLeft} + sizeWorld.cx),
                 SaturateToInt(std::int64_t{iTop} + sizeWorld.cy)};
}

} // namespace

CScrollBarsShown GetScrollBarsShown(const CSize<int>& sizeWorld, const CSize<int>& sizeView, const CSize<int>& sizeBars)
{
    CScrollBarsShown shown{sizeWorld.cy > sizeView.cy, sizeWorld.cx > sizeView.cx};
    const std::int64_t width = std::int64_t{sizeView.cx} - sizeBars.cx;
    const std::int64_t height = std::int64_t{sizeView.cy} - sizeBars.cy;
    shown.bHorizontal = shown.bHorizontal || (shown.bVertical && sizeWorld.cx > width);
    shown.bVertical = shown.bVertical || (shown.bHorizontal && sizeWorld.cy > height);
    return shown;
}

CScrollBarState MirrorScrollBar(const CScrollBarState& bar)
{
    const std::int64_t lastPosition = std::int64_t{bar.iMax} - std::max(bar.iPage, 1) + 1;
    const std::int64_t ends = bar.iMin + std::max(lastPosition, std::int64_t{bar.iMin});
    CScrollBarState mirrored = bar;
    mirrored.iPosition = SaturateToInt(ends - bar.iPosition);
    mirrored.iTrackPosition = SaturateToInt(ends - bar.iTrackPosition);
    return mirrored;
}

CScrollBarState FitScrollBar(const CScrollBarState& old, int iWorldLength, int iClientLength)
{
    CScrollBarState bar = old;
    bar.iMin = 0;
    bar.iMax = iWorldLength > 0 ? iWorldLength - 1 : 0;
    bar.iPage = iClientLength;
    const int iLastPosition = std::max(bar.iMax - std::max(iClientLength, 1) + 1, 0);
    bar.iPosition = std::min(old.iPosition, iLastPosition);
    return bar;
}

int GetWheelPosition(int iPosition, int iDelta)
{
    return SaturateToInt(std::int64_t{iPosition} - iDelta / c_iWheelDivisor);
}

CRect PlaceWorld_Centred(const CSize<int>& sizeWorld, const CSize<int>& sizeClient)
{
    return MakeWorldRect(Centre(sizeClient.cx, sizeWorld.cx), Centre(sizeClient.cy, sizeWorld.cy), sizeWorld);
}

CRect PlaceWorld_Scrolled(const CSize<int>& sizeWorld, const CScrolledView& view)
{
    const int iLeft = view.shown.bHorizontal ? SaturateToInt(-std::int64_t{view.iHorizontalPosition})
                                             : Centre(view.sizeClient.cx, sizeWorld.cx);
    const int iTop = view.shown.bVertical ? SaturateToInt(-std::int64_t{view.iVerticalPosition})
                                          : Centre(view.sizeClient.cy, sizeWorld.cy);
    return MakeWorldRect(iLeft, iTop, sizeWorld);
}

CPoint<int> GetScrolledAway(const CRect& world)
{
    return CPoint<int>{std::max(0, SaturateToInt(-std::int64_t{world.left})),
                       std::max(0, SaturateToInt(-std::int64_t{world.top}))};
}
