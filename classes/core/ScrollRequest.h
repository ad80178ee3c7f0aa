#pragma once

#include <optional>

// What a scroll bar's position becomes when the user asks for something. Nothing here touches a window.

// State of one scroll bar, in the unit that its window scrolls by.
struct CScrollBarState
{
    int iMin{};
    int iMax{};
    int iPage{};
    int iPosition{};
    int iTrackPosition{}; // where the user holds the thumb while dragging it
    bool operator==(const CScrollBarState&) const = default;
};

// Requests of a scroll bar: the low word of the scroll messages.
enum class EnumScrollRequest : unsigned
{
    LineUp = 0,
    LineDown = 1,
    PageUp = 2,
    PageDown = 3,
    ThumbPosition = 4,
    ThumbTrack = 5,
    Top = 6,
    Bottom = 7,
    EndScroll = 8
};

// What differs between the windows that scroll.
struct CScrollRule
{
    int iLineStep{};              // for a click on an arrow
    bool bThumbPositionScrolls{}; // the release of a dragged thumb scrolls too, not only the dragging
};

// New position after a request; nothing for the requests that do not scroll at all. An unknown request leaves the
// position where it is. Steps end at iMin and iMax; the system itself ends one page before iMax. Never overflows.
std::optional<int> GetScrolledPosition(const CScrollBarState& bar, unsigned uRequest, const CScrollRule& rule);
