#include "classes/core/ScrollRequest.h"

#include "classes/core/SaturateToInt.h"

#include <algorithm>
#include <cstdint>

namespace
{
int MoveForward(const CScrollBarState& bar, int iStep)
{
    return SaturateToInt(std::min<std::int64_t>(std::int64_t{bar.iPosition} + iStep, bar.iMax));
}

int MoveBack(const CScrollBarState& bar, int iStep)
{
    return SaturateToInt(std::max<std::int64_t>(std::int64_t{bar.iPosition} - iStep, bar.iMin));
}
} // namespace

std::optional<int> GetScrolledPosition(const CScrollBarState& bar, unsigned uRequest, const CScrollRule& rule)
{
    switch (static_cast<EnumScrollRequest>(uRequest))
    {
    case EnumScrollRequest::LineDown:
        return MoveForward(bar, rule.iLineStep);
    case EnumScrollRequest::LineUp:
        return MoveBack(bar, rule.iLineStep);
    case EnumScrollRequest::PageDown:
        return MoveForward(bar, bar.iPage);
    case EnumScrollRequest::PageUp:
        return MoveBack(bar, bar.iPage);
    case EnumScrollRequest::ThumbTrack:
        return bar.iTrackPosition;
    case EnumScrollRequest::ThumbPosition:
        return rule.bThumbPositionScrolls ? std::optional(bar.iTrackPosition) : std::nullopt;
    case EnumScrollRequest::Top:
        return bar.iMin;
    case EnumScrollRequest::Bottom:
        return bar.iMax;
    case EnumScrollRequest::EndScroll:
        return std::nullopt;
    }
    return bar.iPosition;
}
