#pragma once

#include "classes/core/CPoint.h"
#include "classes/core/CRect.h"
#include "classes/core/CSize.h"
#include "classes/core/ScrollRequest.h"

// The place of the world inside the view, and its moves by the scroll bars and the wheel: in whole pixels, one per
// world unit. Nothing here uses a window.

struct CScrollBarsShown
{
    bool bVertical{};
    bool bHorizontal{};
    bool operator==(const CScrollBarsShown&) const = default;
};

// A bar is shown if the world is larger than the view in the bar's direction, even if only because the other bar takes
// room. sizeView is the size of the view without any bar: measured with its bars, a view would keep a bar for ever.
// sizeBars is the width of the vertical and the height of the horizontal bar.
CScrollBarsShown GetScrollBarsShown(const CSize<int>& sizeWorld, const CSize<int>& sizeView,
                                    const CSize<int>& sizeBars);

// Range, page and position of a bar for a world of iWorldLength seen through iClientLength pixels. The old
// position stays unless it is beyond the new end.
CScrollBarState FitScrollBar(const CScrollBarState& old, int iWorldLength, int iClientLength);

// The bar with its positions counted from its other end. A window that is laid out from right to left has its
// horizontal bar counted from the right, but the world always counts from its left edge. Mirroring twice gives the bar
// itself.
CScrollBarState MirrorScrollBar(const CScrollBarState& bar);

// An arrow scrolls by 10 pixels. Only dragging moves the world with the thumb: its release adds nothing.
inline constexpr CScrollRule c_WorldScrollRule{.iLineStep = 10, .bThumbPositionScrolls = false};

// New vertical position after the wheel has turned by iDelta (120 per notch, positive = away from the user).
int GetWheelPosition(int iPosition, int iDelta);

// Centres the world in the client area; a larger world extends beyond both sides.
CRect PlaceWorld_Centred(const CSize<int>& sizeWorld, const CSize<int>& sizeClient);

// The state of the view that decides the place of a world that can be scrolled.
struct CScrolledView
{
    CScrollBarsShown shown;
    CSize<int> sizeClient;     // without the bars that are shown
    int iHorizontalPosition{}; // pixels hidden at the left; used if the horizontal bar is shown
    int iVerticalPosition{};   // pixels hidden at the top; used if the vertical bar is shown
};

// Scrolls the world in the directions that have a bar and centres it in the others.
CRect PlaceWorld_Scrolled(const CSize<int>& sizeWorld, const CScrolledView& view);

// The distance in pixels from the world's top left corner to that of the view, as far as the world begins outside the
// view: the part that the scroll bars have moved away. 0 in a direction in which the world is not scrolled.
CPoint<int> GetScrolledAway(const CRect& world);
