#pragma once

#include "classes/core/CRect.h"
#include "classes/core/CSize.h"
#include "classes/core/ScrollRequest.h"

// Where the world lies inside the view, and what the scroll bars and the wheel do to it: whole pixels, one per world
// unit. Nothing here touches a window.

struct CScrollBarsShown
{
    bool bVertical{};
    bool bHorizontal{};
    bool operator==(const CScrollBarsShown&) const = default;
};

// A bar is shown where the world is larger than the view, and also where only the other bar leaves too little room.
// sizeView is the room without any bar: measured with one, a bar that is shown would keep itself necessary for
// ever. sizeBars is the width of the vertical and the height of the horizontal bar.
CScrollBarsShown GetScrollBarsShown(const CSize<int>& sizeWorld, const CSize<int>& sizeView,
                                    const CSize<int>& sizeBars);

// Range, page and position of a bar for a world of iWorldLength seen through iClientLength pixels. The old
// position is kept unless it lies behind the new end.
CScrollBarState FitScrollBar(const CScrollBarState& old, int iWorldLength, int iClientLength);

// An arrow scrolls by 10 pixels. Only dragging follows the thumb: its release adds nothing.
inline constexpr CScrollRule c_WorldScrollRule{.iLineStep = 10, .bThumbPositionScrolls = false};

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
