#pragma once

#include "classes/core/CRect.h"
#include "classes/core/CSize.h"
#include "classes/core/ScrollRequest.h"

// Where the world lies inside the view, and how the scroll bars and the wheel move it: in whole pixels, one per world
// unit. Nothing here touches a window.

struct CScrollBarsShown
{
    bool bVertical{};
    bool bHorizontal{};
    bool operator==(const CScrollBarsShown&) const = default;
};

// A bar is shown where the world is larger than the view, and also where only the other bar leaves too little room.
// sizeView is the size of the view without any bar: a size measured with bars would keep a bar for ever once it is
// shown. sizeBars is the width of the vertical and the height of the horizontal bar.
CScrollBarsShown GetScrollBarsShown(const CSize<int>& sizeWorld, const CSize<int>& sizeView,
                                    const CSize<int>& sizeBars);

// Range, page and position of a bar for a world of iWorldLength seen through iClientLength pixels. The old
// position stays unless it is beyond the new end.
CScrollBarState FitScrollBar(const CScrollBarState& old, int iWorldLength, int iClientLength);

// An arrow scrolls by 10 pixels. Only dragging follows the thumb: its release adds nothing.
inline constexpr CScrollRule c_WorldScrollRule{.iLineStep = 10, .bThumbPositionScrolls = false};

// New vertical position after the wheel has turned by iDelta (120 per notch, positive = away from the user).
int GetWheelPosition(int iPosition, int iDelta);

// Centres the world in the client area; a larger world extends beyond both sides.
CRect PlaceWorld_Centred(const CSize<int>& sizeWorld, const CSize<int>& sizeClient);

// The state of the view that decides where a world that can be scrolled lies.
struct CScrolledView
{
    CScrollBarsShown shown;
    CSize<int> sizeClient;     // without the bars that are shown
    int iHorizontalPosition{}; // used where the horizontal bar is shown
    int iVerticalPosition{};   // used where the vertical bar is shown
};

// Scrolls the world in the directions that have a bar and centres it in the others.
CRect PlaceWorld_Scrolled(const CSize<int>& sizeWorld, const CScrolledView& view);
