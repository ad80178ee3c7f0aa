#include "tests/view/windows/CScrollingTest.h"

// Tests which scroll bars the view has, their ranges, and the resulting position of the world.

namespace
{

using WorldViewScrollBars = CScrollingTest;

} // namespace

TEST_F(WorldViewScrollBars, ASmallerWorldHasNoBarsAndIsCentred)
{
    Open({300, 201}, 500, 400);
    EXPECT_FALSE(HasBar(WS_HSCROLL));
    EXPECT_FALSE(HasBar(WS_VSCROLL));
    EXPECT_EQ(GetClient(), (CSize<int>{500, 400}));
    EXPECT_EQ(m_pView->GetWorldRect(), (CRect{100, 99, 400, 300}));
}

TEST_F(WorldViewScrollBars, AWiderWorldHasOnlyTheHorizontalBarAndIsCentredInTheRemainingHeight)
{
    Open({1000, 100}, 500, 400);
    EXPECT_TRUE(HasBar(WS_HSCROLL));
    EXPECT_FALSE(HasBar(WS_VSCROLL));
    EXPECT_EQ(GetClient(), (CSize<int>{500, 400 - m_iBarHeight}));
    const int iTop = (400 - m_iBarHeight - 100) / 2;
    EXPECT_EQ(m_pView->GetWorldRect(), (CRect{0, iTop, 1000, iTop + 100}));
    EXPECT_EQ(GetBar(SB_HORZ).nMax, 999);
    EXPECT_EQ(GetBar(SB_HORZ).nPage, 500U);
}

TEST_F(WorldViewScrollBars, AHigherWorldHasOnlyTheVerticalBarAndIsCentredInTheRemainingWidth)
{
    Open({100, 1000}, 500, 400);
    EXPECT_FALSE(HasBar(WS_HSCROLL));
    EXPECT_TRUE(HasBar(WS_VSCROLL));
    const int iLeft = (500 - m_iBarWidth - 100) / 2;
    EXPECT_EQ(m_pView->GetWorldRect(), (CRect{iLeft, 0, iLeft + 100, 1000}));
}

TEST_F(WorldViewScrollBars, ALargerWorldHasBothBarsOverItsWholeRange)
{
    OpenLarge();
    EXPECT_TRUE(HasBar(WS_HSCROLL));
    EXPECT_TRUE(HasBar(WS_VSCROLL));
    EXPECT_EQ(GetBar(SB_VERT).nMin, 0);
    EXPECT_EQ(GetBar(SB_VERT).nMax, 9998);
    EXPECT_EQ(GetBar(SB_VERT).nPage, static_cast<UINT>(240 - m_iBarHeight));
    EXPECT_EQ(GetBar(SB_HORZ).nMax, 9998);
    EXPECT_EQ(GetBar(SB_HORZ).nPage, static_cast<UINT>(320 - m_iBarWidth));
    ExpectPosition(0, 0);
}

TEST_F(WorldViewScrollBars, TheBarsDisappearWhenTheViewGrowsAndReappearWhenItShrinks)
{
    Open({400, 300}, 200, 100);
    EXPECT_TRUE(HasBar(WS_HSCROLL));
    EXPECT_TRUE(HasBar(WS_VSCROLL));
    // Exactly as large as the world, which fits only without the bars.
    MoveView(0, 0, 400, 300);
    EXPECT_FALSE(HasBar(WS_HSCROLL));
    EXPECT_FALSE(HasBar(WS_VSCROLL));
    EXPECT_EQ(m_pView->GetWorldRect(), (CRect{0, 0, 400, 300}));
    MoveView(0, 0, 399, 299);
    EXPECT_TRUE(HasBar(WS_HSCROLL));
    EXPECT_TRUE(HasBar(WS_VSCROLL));
}

// A smaller world must not keep the previous world's bars, even though these bars have made the view narrower.
TEST_F(WorldViewScrollBars, TheBarsDisappearWhenTheNextWorldFits)
{
    Open({512, 512}, 200, 200);
    EXPECT_TRUE(HasBar(WS_HSCROLL));
    EXPECT_TRUE(HasBar(WS_VSCROLL));
    m_sizeWorld = {200, 200};
    ASSERT_TRUE(Start_Speed());
    EXPECT_FALSE(HasBar(WS_HSCROLL));
    EXPECT_FALSE(HasBar(WS_VSCROLL));
    EXPECT_EQ(m_pView->GetWorldRect(), (CRect{0, 0, 200, 200}));
}

TEST_F(WorldViewScrollBars, GrowingTheViewPullsThePositionBackIntoTheNewRange)
{
    Open({1000, 1000}, 200, 200);
    SetPosition(SB_VERT, 5000);
    SetPosition(SB_HORZ, 5000);
    MoveView(0, 0, 600, 500);
    m_pView->SetControlPositions(-1, -1);
    EXPECT_EQ(GetBar(SB_VERT).nPos, 1000 - (500 - m_iBarHeight));
    EXPECT_EQ(GetBar(SB_HORZ).nPos, 1000 - (600 - m_iBarWidth));
    EXPECT_EQ(m_pView->GetWorldRect().top, -GetBar(SB_VERT).nPos);
    EXPECT_EQ(m_pView->GetWorldRect().left, -GetBar(SB_HORZ).nPos);
}

TEST_F(WorldViewScrollBars, ShrinkingTheViewUntilABarIsShownKeepsThePositionInTheRange)
{
    Open({1000, 1000}, 1100, 600);
    EXPECT_FALSE(HasBar(WS_HSCROLL));
    SetPosition(SB_VERT, 1000);
    const int iVertical = GetBar(SB_VERT).nPos;
    EXPECT_EQ(iVertical, 400);
    MoveView(0, 0, 500, 600);
    EXPECT_TRUE(HasBar(WS_HSCROLL));
    EXPECT_EQ(GetBar(SB_HORZ).nPos, 0);
    EXPECT_LE(GetBar(SB_VERT).nPos, 1000 - (600 - m_iBarHeight));
    EXPECT_GE(GetBar(SB_VERT).nPos, iVertical);
    EXPECT_EQ(m_pView->GetWorldRect().top, -GetBar(SB_VERT).nPos);
}

TEST_F(WorldViewScrollBars, TheRenderTargetFollowsTheClientArea)
{
    OpenLarge();
    Scatter(3, 5);
    ASSERT_TRUE(Start_Speed());
    EXPECT_EQ(GetDirect2DSpy().sizeCreated.cx, 320 - m_iBarWidth);
    EXPECT_EQ(GetDirect2DSpy().sizeCreated.cy, 240 - m_iBarHeight);
    MoveView(0, 0, 500, 400);
    ASSERT_FALSE(GetDirect2DSpy().resizes.empty());
    EXPECT_EQ(GetDirect2DSpy().resizes.back().cx, 500 - m_iBarWidth);
    EXPECT_EQ(GetDirect2DSpy().resizes.back().cy, 400 - m_iBarHeight);
    ASSERT_TRUE(Start_Speed(true));
    EXPECT_EQ(GetDirect2DSpy().resizes.back().cx, 500);
    EXPECT_EQ(GetDirect2DSpy().resizes.back().cy, 400);
}

// With each call the system gives a target new memory, and Wine 10 loses two small blocks where the size stays the
// same.
TEST_F(WorldViewScrollBars, ARenderTargetOfTheRightSizeIsNotResized)
{
    OpenLarge();
    Scatter(3, 5);
    ASSERT_TRUE(Start_Speed());
    GetDirect2DSpy().resizes.clear();
    ASSERT_TRUE(Start_Speed());
    Send(WM_VSCROLL, SB_LINEDOWN);
    MoveView(50, 60, 320, 240);
    EXPECT_EQ(GetDirect2DSpy().resizes.size(), 0U);
    MoveView(50, 60, 321, 240);
    MoveView(50, 60, 320, 240);
    EXPECT_EQ(GetDirect2DSpy().resizes.size(), 2U);
}

TEST_F(WorldViewScrollBars, WithoutScrollingALargerWorldIsCentredAndHasNoBarsUntilItScrollsAgain)
{
    Open({800, 700}, 400, 300);
    ASSERT_TRUE(Start_Speed());
    ASSERT_TRUE(HasBar(WS_VSCROLL) && HasBar(WS_HSCROLL));
    ASSERT_TRUE(Start_Speed(true));
    EXPECT_FALSE(HasBar(WS_VSCROLL));
    EXPECT_FALSE(HasBar(WS_HSCROLL));
    EXPECT_EQ(m_pView->GetWorldRect(), (CRect{-200, -200, 600, 500}));
    ASSERT_TRUE(Start_Speed());
    EXPECT_TRUE(HasBar(WS_VSCROLL) && HasBar(WS_HSCROLL));
}

// A thumb may still be held when full screen begins.
TEST_F(WorldViewScrollBars, AScrollRequestDoesNothingInAViewWithoutScrolling)
{
    Open({800, 700}, 400, 300);
    ASSERT_TRUE(Start_Speed());
    ASSERT_TRUE(Start_Speed(true));
    Send(WM_VSCROLL, SB_LINEDOWN);
    Send(WM_HSCROLL, SB_LINEDOWN);
    EXPECT_FALSE(HasBar(WS_VSCROLL));
    EXPECT_FALSE(HasBar(WS_HSCROLL));
    EXPECT_EQ(GetBar(SB_VERT).nPos, 0);
    EXPECT_EQ(GetBar(SB_HORZ).nPos, 0);
}

// The system keeps a position of a bar that is not shown, and would use it for the next world.
TEST_F(WorldViewScrollBars, WithoutABarAScrollRequestLeavesTheNextWorldAtItsTopLeftCorner)
{
    Open({300, 200}, 400, 300);
    TurnWheel(-WHEEL_DELTA);
    Scroll(WM_VSCROLL, SB_BOTTOM);
    Scroll(WM_HSCROLL, SB_BOTTOM);
    EXPECT_FALSE(HasBar(WS_VSCROLL) || HasBar(WS_HSCROLL));
    m_sizeWorld = {1000, 1000};
    ASSERT_TRUE(Start_Speed());
    EXPECT_TRUE(HasBar(WS_VSCROLL) && HasBar(WS_HSCROLL));
    EXPECT_EQ(m_pView->GetWorldRect(), (CRect{0, 0, 1000, 1000}));
}
