#pragma once

#include "classes/core/CRect.h"
#include "classes/core/CSize.h"

#include <optional>

// Where the world lies inside the view, and what the scroll bars and the wheel do to it: whole pixels, one per world
// unit. Nothing here touches a window.

// State of one scroll bar.
struct CScrollBarState
{
    int iMin{};
    int iMax{};
    int iPage{};
    int iPosition{};
    int iTrackPosition{}; // where the thumb is held while it is dragged
    bool operator==(const CScrollBarState&) const = default;
};

struct CScrollBarsShown
{
    bool bVertical{};
    bool bHorizontal{};
    bool operator==(const CScrollBarsShown&) const = default;
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

// A bar is shown where the world is larger than the view, and also where only the other bar leaves too little room.
// sizeView is the room without any bar: measured with one, a bar that is shown would keep itself necessary for
// ever. sizeBars is the width of the vertical and the height of the horizontal bar.
CScrollBarsShown GetScrollBarsShown(const CSize<int>& sizeWorld, const CSize<int>& sizeView,
                                    const CSize<int>& sizeBars);

// Range, page and position of a bar for a world of iWorldLength seen through iClientLength pixels. The old
// position is kept unless it lies behind the new end.
CScrollBarState FitScrollBar(const CScrollBarState& old, int iWorldLength, int iClientLength);

// New position after a request; nothing for the requests that do not scroll at all. Requests that are unknown leave
// the position where it is. The far end is the maximum of the range: the system itself stops one page before it.
std::optional<int> GetScrolledPosition(const CScrollBarState& bar, unsigned uRequest);

// New vertical position after the wheel has turned by iDelta (120 per notch, positive = away from the user).
int GetWheelPosition(int iPosition, int iDelta);

// The world in the middle of the client area; it hangs over on both sides where it is larger.
CRect PlaceWorld_Centred(const CSize<int>& sizeWorld, const CSize<int>& sizeClient);

// What decides the place of the world while it can be scrolled.
struct CScrolledView
{
    CScrollBarsShown shown;
    CSize<int> sizeClient;     // what the bars have left
    int iHorizontalPosition{}; // used where the horizontal bar is shown
    int iVerticalPosition{};   // used where the vertical bar is shown
};

// The world scrolled in the directions in which it is larger than the view, and centred in the others.
CRect PlaceWorld_Scrolled(const CSize<int>& sizeWorld, const CScrolledView& view);
