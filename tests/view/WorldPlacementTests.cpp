#include "view/WorldPlacement.h"

#include <gtest/gtest.h>

#include <limits>

namespace
{

constexpr CSize<int> c_sizeView{700, 600};
constexpr int c_iBar = 17; // pixels that a scroll bar takes from the client area in these tests
constexpr CSize<int> c_sizeBars{c_iBar, c_iBar};
constexpr CScrollBarsShown c_NoBars{false, false};
constexpr CScrollBarsShown c_VerticalBar{true, false};
constexpr CScrollBarsShown c_HorizontalBar{false, true};
constexpr CScrollBarsShown c_BothBars{true, true};
constexpr int c_iMaxInt = std::numeric_limits<int>::max();
constexpr int c_iMinInt = std::numeric_limits<int>::min();

CScrollBarState MakeBar(int iMax, int iPage, int iPosition, int iTrackPosition = 0)
{
    return CScrollBarState{0, iMax, iPage, iPosition, iTrackPosition};
}

std::optional<int> Request(const CScrollBarState& bar, EnumScrollRequest eRequest)
{
    return GetScrolledPosition(bar, static_cast<unsigned>(eRequest), c_WorldScrollRule);
}

} // namespace

TEST(ScrollBarsShown, AppearOnlyInDirectionsInWhichTheWorldIsLargerThanTheView)
{
    EXPECT_EQ(GetScrollBarsShown({699, 599}, c_sizeView, c_sizeBars), c_NoBars);
    EXPECT_EQ(GetScrollBarsShown({700, 600}, c_sizeView, c_sizeBars), c_NoBars);
    EXPECT_EQ(GetScrollBarsShown({701, 400}, c_sizeView, c_sizeBars), c_HorizontalBar);
    EXPECT_EQ(GetScrollBarsShown({400, 601}, c_sizeView, c_sizeBars), c_VerticalBar);
    EXPECT_EQ(GetScrollBarsShown({701, 601}, c_sizeView, c_sizeBars), c_BothBars);
}

// Without the second bar, the first bar would hide a strip of the world that could not be scrolled into view.
TEST(ScrollBarsShown, OneBarCanMakeTheOtherNecessary)
{
    EXPECT_EQ(GetScrollBarsShown({701, 600 - c_iBar}, c_sizeView, c_sizeBars), c_HorizontalBar);
    EXPECT_EQ(GetScrollBarsShown({701, 600 - c_iBar + 1}, c_sizeView, c_sizeBars), c_BothBars);
    EXPECT_EQ(GetScrollBarsShown({700 - c_iBar, 601}, c_sizeView, c_sizeBars), c_VerticalBar);
    EXPECT_EQ(GetScrollBarsShown({700 - c_iBar + 1, 601}, c_sizeView, c_sizeBars), c_BothBars);
}

TEST(ScrollBarsShown, LengthsAtTheEndOfTheIntegerRangeDoNotOverflow)
{
    EXPECT_EQ(GetScrollBarsShown({c_iMaxInt, c_iMaxInt}, {c_iMinInt, c_iMinInt}, {c_iMaxInt, c_iMaxInt}), c_BothBars);
    EXPECT_EQ(GetScrollBarsShown({10, 1}, {9, c_iMinInt}, c_sizeBars), c_BothBars);
    EXPECT_EQ(GetScrollBarsShown({c_iMinInt, c_iMinInt}, c_sizeView, {c_iMinInt, c_iMinInt}), c_NoBars);
}

TEST(PlaceWorld, ASmallerWorldIsCentredInBothDirections)
{
    const CRect rc = PlaceWorld_Scrolled({500, 401}, {c_NoBars, c_sizeView, 33, 44});
    EXPECT_EQ(rc, (CRect{100, 99, 600, 500}));
}

TEST(PlaceWorld, AWorldOfExactlyTheViewsSizeFillsIt)
{
    EXPECT_EQ(PlaceWorld_Scrolled(c_sizeView, {c_NoBars, c_sizeView, 33, 44}), (CRect{0, 0, 700, 600}));
}

TEST(PlaceWorld, AWiderWorldScrollsSidewaysAndIsCentredInTheHeightThatTheBarLeaves)
{
    const CScrolledView view{c_HorizontalBar, {700, 600 - c_iBar}, 250, 44};
    EXPECT_EQ(PlaceWorld_Scrolled({1000, 400}, view), (CRect{-250, 91, 750, 491}));
}

TEST(PlaceWorld, AHigherWorldScrollsVerticallyAndIsCentredInTheWidthThatTheBarLeaves)
{
    const CScrolledView view{c_VerticalBar, {700 - c_iBar, 600}, 33, 300};
    EXPECT_EQ(PlaceWorld_Scrolled({500, 1000}, view), (CRect{91, -300, 591, 700}));
}

TEST(PlaceWorld, ALargerWorldScrollsInBothDirections)
{
    const CScrolledView view{c_BothBars, {700 - c_iBar, 600 - c_iBar}, 9000, 8000};
    EXPECT_EQ(PlaceWorld_Scrolled({9999, 9999}, view), (CRect{-9000, -8000, 999, 1999}));
}

TEST(PlaceWorld, WithoutScrollingTheWorldIsAlwaysCentredEvenWhenItIsLarger)
{
    EXPECT_EQ(PlaceWorld_Centred({500, 400}, c_sizeView), (CRect{100, 100, 600, 500}));
    EXPECT_EQ(PlaceWorld_Centred({1000, 1000}, c_sizeView), (CRect{-150, -200, 850, 800}));
}

TEST(PlaceWorld, HalvesAreTruncatedTowardsZeroOnBothSides)
{
    EXPECT_EQ(PlaceWorld_Centred({699, 600}, c_sizeView).left, 0);
    EXPECT_EQ(PlaceWorld_Centred({701, 600}, c_sizeView).left, 0);
    EXPECT_EQ(PlaceWorld_Centred({703, 600}, c_sizeView).left, -1);
}

TEST(FitScrollBar, TheRangeIsTheWorldAndThePageTheView)
{
    EXPECT_EQ(FitScrollBar(MakeBar(5, 6, 123), 1000, 600), MakeBar(999, 600, 123));
}

TEST(FitScrollBar, APositionBeyondTheNewEndMovesToTheEnd)
{
    // The last position shows the world's last row in the view's last row: 1000 - 600.
    EXPECT_EQ(FitScrollBar(MakeBar(1999, 600, 1400), 1000, 600).iPosition, 400);
    EXPECT_EQ(FitScrollBar(MakeBar(1999, 600, 400), 1000, 600).iPosition, 400);
    EXPECT_EQ(FitScrollBar(MakeBar(1999, 600, 399), 1000, 600).iPosition, 399);
}

TEST(FitScrollBar, ShrinkingTheViewKeepsThePosition)
{
    EXPECT_EQ(FitScrollBar(MakeBar(999, 600, 400), 1000, 100).iPosition, 400);
}

TEST(FitScrollBar, AnEmptyWorldOrViewKeepsTheRangeValid)
{
    EXPECT_EQ(FitScrollBar(MakeBar(10, 1, 7), 0, 600), MakeBar(0, 600, 0));
    EXPECT_EQ(FitScrollBar(MakeBar(10, 1, 7), -5, 600), MakeBar(0, 600, 0));
    EXPECT_EQ(FitScrollBar(MakeBar(5000, 1, 2000), 1000, 0).iPosition, 999); // an empty page counts as one row
}

TEST(FitScrollBar, TheDraggedPositionIsNotChanged)
{
    EXPECT_EQ(FitScrollBar(MakeBar(10, 1, 7, 77), 1000, 600).iTrackPosition, 77);
}

TEST(MirrorScrollBar, ThePositionCountsFromTheLastOne)
{
    // The positions are 0 to 400: the last one is a page before the end of the range.
    EXPECT_EQ(MirrorScrollBar(MakeBar(999, 600, 0, 10)), MakeBar(999, 600, 400, 390));
    EXPECT_EQ(MirrorScrollBar(MakeBar(999, 600, 400, 0)), MakeBar(999, 600, 0, 400));
    EXPECT_EQ(MirrorScrollBar(MakeBar(999, 600, 150, 399)), MakeBar(999, 600, 250, 1));
    EXPECT_EQ(MirrorScrollBar({10, 109, 30, 10, 80}), (CScrollBarState{10, 109, 30, 80, 10}));
}

TEST(MirrorScrollBar, ABarWithoutRoomToScrollStaysAsItIs)
{
    EXPECT_EQ(MirrorScrollBar(MakeBar(0, 0, 0)), MakeBar(0, 0, 0));
    EXPECT_EQ(MirrorScrollBar(MakeBar(99, 500, 0)), MakeBar(99, 500, 0));
}

TEST(MirrorScrollBar, NumbersAtTheEndOfTheIntegerRangeDoNotOverflow)
{
    EXPECT_EQ(MirrorScrollBar({0, c_iMaxInt, 0, 0, c_iMinInt}),
              (CScrollBarState{0, c_iMaxInt, 0, c_iMaxInt, c_iMaxInt}));
    EXPECT_EQ(MirrorScrollBar({c_iMinInt, c_iMinInt, c_iMaxInt, 0, 0}),
              (CScrollBarState{c_iMinInt, c_iMinInt, c_iMaxInt, c_iMinInt, c_iMinInt}));
}

TEST(WorldScrollRule, ALineIsTenPixels)
{
    EXPECT_EQ(Request(MakeBar(999, 600, 100), EnumScrollRequest::LineDown), 110);
    EXPECT_EQ(Request(MakeBar(999, 600, 100), EnumScrollRequest::LineUp), 90);
}

TEST(WorldScrollRule, OnlyDraggingFollowsTheThumb)
{
    EXPECT_EQ(Request(MakeBar(999, 600, 5, 321), EnumScrollRequest::ThumbTrack), 321);
    EXPECT_EQ(Request(MakeBar(999, 600, 5, 321), EnumScrollRequest::ThumbPosition), std::nullopt);
}

TEST(Wheel, ANotchAwayFromTheUserMovesSixtyPixelsUp)
{
    EXPECT_EQ(GetWheelPosition(100, 120), 40);
    EXPECT_EQ(GetWheelPosition(100, -120), 160);
}

TEST(Wheel, HalvesAreTruncatedTowardsZero)
{
    EXPECT_EQ(GetWheelPosition(100, 3), 99);
    EXPECT_EQ(GetWheelPosition(100, -3), 101);
    EXPECT_EQ(GetWheelPosition(100, 1), 100);
    EXPECT_EQ(GetWheelPosition(100, -1), 100);
}

TEST(Wheel, TheLargestTurnDoesNotOverflow)
{
    EXPECT_EQ(GetWheelPosition(100, 32767), -16283);
    EXPECT_EQ(GetWheelPosition(100, -32768), 16484);
}

TEST(WorldPlacement, OnlyAScrolledWorldHasSomethingScrolledAway)
{
    const CPoint<int> scrolled = GetScrolledAway({-700, -30, 1300, 1970});
    EXPECT_EQ(scrolled.x, 700);
    EXPECT_EQ(scrolled.y, 30);
    const CPoint<int> centred = GetScrolledAway({40, 0, 240, 200});
    EXPECT_EQ(centred.x, 0);
    EXPECT_EQ(centred.y, 0);
}
