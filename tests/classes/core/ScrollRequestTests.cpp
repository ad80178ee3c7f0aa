#include "classes/core/ScrollRequest.h"

#include <gtest/gtest.h>

#include <limits>

namespace
{
constexpr int c_iMaxInt = std::numeric_limits<int>::max();
constexpr int c_iMinInt = std::numeric_limits<int>::min();
constexpr CScrollRule c_rule{.iLineStep = 7, .bThumbPositionScrolls = false};
constexpr CScrollRule c_ruleOfRelease{.iLineStep = 7, .bThumbPositionScrolls = true};

CScrollBarState MakeBar(int iMax, int iPage, int iPosition, int iTrackPosition = 0)
{
    return CScrollBarState{0, iMax, iPage, iPosition, iTrackPosition};
}

std::optional<int> Request(const CScrollBarState& bar, EnumScrollRequest eRequest, const CScrollRule& rule = c_rule)
{
    return GetScrolledPosition(bar, static_cast<unsigned>(eRequest), rule);
}
} // namespace

TEST(ScrollRequest, ALineIsTheStepOfTheRule)
{
    EXPECT_EQ(Request(MakeBar(999, 600, 100), EnumScrollRequest::LineDown), 107);
    EXPECT_EQ(Request(MakeBar(999, 600, 100), EnumScrollRequest::LineUp), 93);
}

TEST(ScrollRequest, APageIsThePageOfTheBar)
{
    EXPECT_EQ(Request(MakeBar(1999, 600, 100), EnumScrollRequest::PageDown), 700);
    EXPECT_EQ(Request(MakeBar(1999, 600, 900), EnumScrollRequest::PageUp), 300);
}

TEST(ScrollRequest, StepsStopAtTheMinimumAndAtTheMaximum)
{
    EXPECT_EQ(Request(MakeBar(999, 600, 5), EnumScrollRequest::LineUp), 0);
    EXPECT_EQ(Request(MakeBar(999, 600, 5), EnumScrollRequest::PageUp), 0);
    EXPECT_EQ(Request(MakeBar(999, 600, 995), EnumScrollRequest::LineDown), 999);
    EXPECT_EQ(Request(MakeBar(999, 600, 995), EnumScrollRequest::PageDown), 999);
}

TEST(ScrollRequest, TheEndsAreTheMinimumAndTheMaximumItself)
{
    EXPECT_EQ(Request(MakeBar(999, 600, 5), EnumScrollRequest::Top), 0);
    EXPECT_EQ(Request(MakeBar(999, 600, 5), EnumScrollRequest::Bottom), 999);
}

TEST(ScrollRequest, DraggingFollowsTheThumbUnderAnyRule)
{
    EXPECT_EQ(Request(MakeBar(999, 600, 5, 321), EnumScrollRequest::ThumbTrack, c_rule), 321);
    EXPECT_EQ(Request(MakeBar(999, 600, 5, 321), EnumScrollRequest::ThumbTrack, c_ruleOfRelease), 321);
}

TEST(ScrollRequest, TheReleaseOfTheThumbScrollsWhereTheRuleSaysSo)
{
    EXPECT_EQ(Request(MakeBar(999, 600, 5, 321), EnumScrollRequest::ThumbPosition, c_rule), std::nullopt);
    EXPECT_EQ(Request(MakeBar(999, 600, 5, 321), EnumScrollRequest::ThumbPosition, c_ruleOfRelease), 321);
}

TEST(ScrollRequest, TheEndOfScrollingScrollsNowhere)
{
    EXPECT_EQ(Request(MakeBar(999, 600, 5, 321), EnumScrollRequest::EndScroll, c_rule), std::nullopt);
    EXPECT_EQ(Request(MakeBar(999, 600, 5, 321), EnumScrollRequest::EndScroll, c_ruleOfRelease), std::nullopt);
}

TEST(ScrollRequest, AnUnknownRequestLeavesThePosition)
{
    EXPECT_EQ(GetScrolledPosition(MakeBar(999, 600, 5, 321), 9U, c_rule), 5);
    EXPECT_EQ(GetScrolledPosition(MakeBar(999, 600, 5, 321), 0xFFFFU, c_rule), 5);
}

TEST(ScrollRequest, PositionsAtTheEndOfTheRangeOfAnIntegerDoNotOverflow)
{
    EXPECT_EQ(Request({0, c_iMaxInt, c_iMaxInt, c_iMaxInt, 0}, EnumScrollRequest::PageDown), c_iMaxInt);
    EXPECT_EQ(Request({c_iMinInt, 0, c_iMaxInt, c_iMinInt, 0}, EnumScrollRequest::PageUp), c_iMinInt);
}
