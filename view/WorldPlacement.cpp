#include "view/WorldPlacement.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace
{

constexpr int c_iLineStep = 10;    // pixels per click on an arrow of a scroll bar
constexpr int c_iWheelDivisor = 2; // a notch of 120 moves 60 pixels

// Sums of two positions are formed wide: a thumb may be dragged to any 32-bit value.
int ToInt(std::int64_t iValue)
{
    constexpr std::int64_t c_iLowest = std::numeric_limits<int>::min();
    constexpr std::int64_t c_iHighest = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(iValue, c_iLowest, c_iHighest));
}

int MoveForward(const CScrollBarState& bar, int iStep)
{
    return ToInt(std::min<std::int64_t>(std::int64_t{bar.iPosition} + iStep, bar.iMax));
}

int MoveBack(const CScrollBarState& bar, int iStep)
{
    return ToInt(std::max<std::int64_t>(std::int64_t{bar.iPosition} - iStep, bar.iMin));
}

int Centre(int iClientLength, int iWorldLength)
{
    return ToInt((std::int64_t{iClientLength} - iWorldLength) / 2);
}

CRect MakeWorldRect(int iLeft, int iTop, const CSize<int>& sizeWorld)
{
    return CRect{iLeft, iTop, ToInt(std::int64_t{iLeft} + sizeWorld.cx), ToInt(std::int64_t{iTop} + sizeWorld.cy)};
}

} // namespace

CScrollBarsShown GetScrollBarsShown(const CSize<int>& sizeWorld, const CSize<int>& sizeView, const CSize<int>& sizeBars)
{
    CScrollBarsShown shown{sizeWorld.cy > sizeView.cy, sizeWorld.cx > sizeView.cx};
    shown.bHorizontal = shown.bHorizontal || (shown.bVertical && sizeWorld.cx > sizeView.cx - sizeBars.cx);
    shown.bVertical = shown.bVertical || (shown.bHorizontal && sizeWorld.cy > sizeView.cy - sizeBars.cy);
    return shown;
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

std::optional<int> GetScrolledPosition(const CScrollBarState& bar, unsigned uRequest)
{
    switch (static_cast<EnumScrollRequest>(uRequest))
    {
    case EnumScrollRequest::LineDown:
        return MoveForward(bar, c_iLineStep);
    case EnumScrollRequest::LineUp:
        return MoveBack(bar, c_iLineStep);
    case EnumScrollRequest::PageDown:
        return MoveForward(bar, bar.iPage);
    case EnumScrollRequest::PageUp:
        return MoveBack(bar, bar.iPage);
    case EnumScrollRequest::ThumbTrack:
        return bar.iTrackPosition;
    case EnumScrollRequest::Top:
        return bar.iMin;
    case EnumScrollRequest::Bottom:
        return bar.iMax;
    case EnumScrollRequest::ThumbPosition:
    case EnumScrollRequest::EndScroll:
        return std::nullopt;
    }
    return bar.iPosition;
}

int GetWheelPosition(int iPosition, int iDelta)
{
    return ToInt(std::int64_t{iPosition} - iDelta / c_iWheelDivisor);
}

CRect PlaceWorld_Centred(const CSize<int>& sizeWorld, const CSize<int>& sizeClient)
{
    return MakeWorldRect(Centre(sizeClient.cx, sizeWorld.cx), Centre(sizeClient.cy, sizeWorld.cy), sizeWorld);
}

CRect PlaceWorld_Scrolled(const CSize<int>& sizeWorld, const CScrolledView& view)
{
    const int iLeft = view.shown.bHorizontal ? ToInt(-std::int64_t{view.iHorizontalPosition})
                                             : Centre(view.sizeClient.cx, sizeWorld.cx);
    const int iTop =
        view.shown.bVertical ? ToInt(-std::int64_t{view.iVerticalPosition}) : Centre(view.sizeClient.cy, sizeWorld.cy);
    return MakeWorldRect(iLeft, iTop, sizeWorld);
}
