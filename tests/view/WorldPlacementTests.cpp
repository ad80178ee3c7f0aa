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
    return GetScrolledPosition(bar, static_cast<unsigned>(eRequest));
}

} // namespace

TEST(ScrollBarsShown, OnlyWhereTheWorldIsLargerThanTheView)
{
    EXPECT_EQ(c_NoBars, GetScrollBarsShown({699, 599}, c_sizeView, c_sizeBars));
    EXPECT_EQ(c_NoBars, GetScrollBarsShown({700, 600}, c_sizeView, c_sizeBars));
    EXPECT_EQ(c_HorizontalBar, GetScrollBarsShown({701, 400}, c_sizeView, c_sizeBars));
    EXPECT_EQ(c_VerticalBar, GetScrollBarsShown({400, 601}, c_sizeView, c_sizeBars));
    EXPECT_EQ(c_BothBars, GetScrollBarsShown({701, 601}, c_sizeView, c_sizeBars));
}

// Without the second bar a strip of the world would lie out of reach, hidden by the first.
TEST(ScrollBarsShown, OneBarCanMakeTheOtherNecessary)
{
    EXPECT_EQ(c_HorizontalBar, GetScrollBarsShown({701, 600 - c_iBar}, c_sizeView, c_sizeBars));
    EXPECT_EQ(c_BothBars, GetScrollBarsShown({701, 600 - c_iBar + 1}, c_sizeView, c_sizeBars));
    EXPECT_EQ(c_VerticalBar, GetScrollBarsShown({700 - c_iBar, 601}, c_sizeView, c_sizeBars));
    EXPECT_EQ(c_BothBars, GetScrollBarsShown({700 - c_iBar + 1, 601}, c_sizeView, c_sizeBars));
}

TEST(ScrollBarsShown, LengthsAtTheEndOfTheRangeOfAnIntegerDoNotOverflow)
{
    EXPECT_EQ(c_BothBars, GetScrollBarsShown({c_iMaxInt, c_iMaxInt}, {c_iMinInt, c_iMinInt}, {c_iMaxInt, c_iMaxInt}));
    EXPECT_EQ(c_BothBars, GetScrollBarsShown({10, 1}, {9, c_iMinInt}, c_sizeBars));
    EXPECT_EQ(c_NoBars, GetScrollBarsShown({c_iMinInt, c_iMinInt}, c_sizeView, {c_iMinInt, c_iMinInt}));
}

TEST(PlaceWorld, ASmallerWorldIsCentredInBothDirections)
{
    const CRect rc = PlaceWorld_Scrolled({500, 401}, {c_NoBars, c_sizeView, 33, 44});
    EXPECT_EQ((CRect{100, 99, 600, 500}), rc);
}

TEST(PlaceWorld, AWorldOfExactlyTheViewsSizeFillsIt)
{
    EXPECT_EQ((CRect{0, 0, 700, 600}), PlaceWorld_Scrolled(c_sizeView, {c_NoBars, c_sizeView, 33, 44}));
}

TEST(PlaceWorld, AWiderWorldScrollsSidewaysAndIsCentredInTheHeightThatTheBarLeaves)
{
    const CScrolledView view{c_HorizontalBar, {700, 600 - c_iBar}, 250, 44};
    EXPECT_EQ((CRect{-250, 91, 750, 491}), PlaceWorld_Scrolled({1000, 400}, view));
}

TEST(PlaceWorld, AHigherWorldScrollsVerticallyAndIsCentredInTheWidthThatTheBarLeaves)
{
    const CScrolledView view{c_VerticalBar, {700 - c_iBar, 600}, 33, 300};
    EXPECT_EQ((CRect{91, -300, 591, 700}), PlaceWorld_Scrolled({500, 1000}, view));
}

TEST(PlaceWorld, ALargerWorldScrollsInBothDirections)
{
    const CScrolledView view{c_BothBars, {700 - c_iBar, 600 - c_iBar}, 9000, 8000};
    EXPECT_EQ((CRect{-9000, -8000, 999, 1999}), PlaceWorld_Scrolled({9999, 9999}, view));
}

TEST(PlaceWorld, WithoutScrollingTheWorldIsAlwaysCentredEvenWhenItIsLarger)
{
    EXPECT_EQ((CRect{100, 100, 600, 500}), PlaceWorld_Centred({500, 400}, c_sizeView));
    EXPECT_EQ((CRect{-150, -200, 850, 800}), PlaceWorld_Centred({1000, 1000}, c_sizeView));
}

TEST(PlaceWorld, HalvesAreTruncatedTowardsZeroOnBothSides)
{
    EXPECT_EQ(0, PlaceWorld_Centred({699, 600}, c_sizeView).left);
    EXPECT_EQ(0, PlaceWorld_Centred({701, 600}, c_sizeView).left);
    EXPECT_EQ(-1, PlaceWorld_Centred({703, 600}, c_sizeView).left);
}

TEST(FitScrollBar, TheRangeIsTheWorldAndThePageTheView)
{
    EXPECT_EQ(MakeBar(999, 600, 123), FitScrollBar(MakeBar(5, 6, 123), 1000, 600));
}

TEST(FitScrollBar, APositionBehindTheNewEndMovesToIt)
{
    // The last position shows the world's last row in the view's last one: 1000 - 600.
    EXPECT_EQ(400, FitScrollBar(MakeBar(1999, 600, 1400), 1000, 600).iPosition);
    EXPECT_EQ(400, FitScrollBar(MakeBar(1999, 600, 400), 1000, 600).iPosition);
    EXPECT_EQ(399, FitScrollBar(MakeBar(1999, 600, 399), 1000, 600).iPosition);
}

TEST(FitScrollBar, ShrinkingTheViewKeepsThePosition)
{
    EXPECT_EQ(400, FitScrollBar(MakeBar(999, 600, 400), 1000, 100).iPosition);
}

TEST(FitScrollBar, AnEmptyWorldOrViewKeepsTheRangeValid)
{
    EXPECT_EQ(MakeBar(0, 600, 0), FitScrollBar(MakeBar(10, 1, 7), 0, 600));
    EXPECT_EQ(MakeBar(0, 600, 0), FitScrollBar(MakeBar(10, 1, 7), -5, 600));
    EXPECT_EQ(999, FitScrollBar(MakeBar(5000, 1, 2000), 1000, 0).iPosition); // a page of nothing counts as one row
}

TEST(FitScrollBar, TheDraggedPositionIsLeftAlone)
{
    EXPECT_EQ(77, FitScrollBar(MakeBar(10, 1, 7, 77), 1000, 600).iTrackPosition);
}

TEST(ScrollRequest, ALineIsTenPixels)
{
    EXPECT_EQ(110, Request(MakeBar(999, 600, 100), EnumScrollRequest::LineDown));
    EXPECT_EQ(90, Request(MakeBar(999, 600, 100), EnumScrollRequest::LineUp));
}

TEST(ScrollRequest, APageIsTheView)
{
    EXPECT_EQ(700, Request(MakeBar(1999, 600, 100), EnumScrollRequest::PageDown));
    EXPECT_EQ(300, Request(MakeBar(1999, 600, 900), EnumScrollRequest::PageUp));
}

TEST(ScrollRequest, StepsStopAtTheMinimumAndAtTheMaximum)
{
    EXPECT_EQ(0, Request(MakeBar(999, 600, 5), EnumScrollRequest::LineUp));
    EXPECT_EQ(0, Request(MakeBar(999, 600, 5), EnumScrollRequest::PageUp));
    EXPECT_EQ(999, Request(MakeBar(999, 600, 995), EnumScrollRequest::LineDown));
    EXPECT_EQ(999, Request(MakeBar(999, 600, 995), EnumScrollRequest::PageDown));
}

TEST(ScrollRequest, TheEndsAreTheMinimumAndTheMaximumItself)
{
    EXPECT_EQ(0, Request(MakeBar(999, 600, 5), EnumScrollRequest::Top));
    EXPECT_EQ(999, Request(MakeBar(999, 600, 5), EnumScrollRequest::Bottom));
}

TEST(ScrollRequest, OnlyDraggingFollowsTheThumb)
{
    EXPECT_EQ(321, Request(MakeBar(999, 600, 5, 321), EnumScrollRequest::ThumbTrack));
    EXPECT_EQ(std::nullopt, Request(MakeBar(999, 600, 5, 321), EnumScrollRequest::ThumbPosition));
    EXPECT_EQ(std::nullopt, Request(MakeBar(999, 600, 5, 321), EnumScrollRequest::EndScroll));
}

TEST(ScrollRequest, AnUnknownRequestLeavesThePosition)
{
    EXPECT_EQ(5, GetScrolledPosition(MakeBar(999, 600, 5, 321), 9U));
    EXPECT_EQ(5, GetScrolledPosition(MakeBar(999, 600, 5, 321), 0xFFFFU));
}

TEST(ScrollRequest, PositionsAtTheEndOfTheRangeOfAnIntegerDoNotOverflow)
{
    EXPECT_EQ(c_iMaxInt, Request({0, c_iMaxInt, c_iMaxInt, c_iMaxInt, 0}, EnumScrollRequest::PageDown));
    EXPECT_EQ(c_iMinInt, Request({c_iMinInt, 0, c_iMaxInt, c_iMinInt, 0}, EnumScrollRequest::PageUp));
}

TEST(Wheel, ANotchAwayFromTheUserMovesSixtyPixelsUp)
{
    EXPECT_EQ(40, GetWheelPosition(100, 120));
    EXPECT_EQ(160, GetWheelPosition(100, -120));
}

TEST(Wheel, HalvesAreTruncatedTowardsZero)
{
    EXPECT_EQ(99, GetWheelPosition(100, 3));
    EXPECT_EQ(101, GetWheelPosition(100, -3));
    EXPECT_EQ(100, GetWheelPosition(100, 1));
    EXPECT_EQ(100, GetWheelPosition(100, -1));
}

TEST(Wheel, TheLargestTurnIsHarmless)
{
    EXPECT_EQ(-16283, GetWheelPosition(100, 32767));
    EXPECT_EQ(16484, GetWheelPosition(100, -32768));
}
