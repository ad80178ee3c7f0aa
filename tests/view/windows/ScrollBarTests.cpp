#include "tests/view/windows/CScrollingTest.h"

// Which scroll bars the view has, their ranges, and where they leave the world.

namespace
{

using WorldViewScrollBars = CScrollingTest;

} // namespace

TEST_F(WorldViewScrollBars, ASmallerWorldHasNoBarsAndIsCentred)
{
    Open({300, 201}, 500, 400);
    EXPECT_FALSE(HasBar(WS_HSCROLL));
    EXPECT_FALSE(HasBar(WS_VSCROLL));
    EXPECT_EQ((CSize<int>{500, 400}), GetClient());
    EXPECT_EQ((CRect{100, 99, 400, 300}), m_pView->GetWorldRect());
}

TEST_F(WorldViewScrollBars, AWiderWorldHasOnlyTheHorizontalBarAndIsCentredInTheHeightLeft)
{
    Open({1000, 100}, 500, 400);
    EXPECT_TRUE(HasBar(WS_HSCROLL));
    EXPECT_FALSE(HasBar(WS_VSCROLL));
    EXPECT_EQ((CSize<int>{500, 400 - m_iBarHeight}), GetClient());
    const int iTop = (400 - m_iBarHeight - 100) / 2;
    EXPECT_EQ((CRect{0, iTop, 1000, iTop + 100}), m_pView->GetWorldRect());
    EXPECT_EQ(999, GetBar(SB_HORZ).nMax);
    EXPECT_EQ(500U, GetBar(SB_HORZ).nPage);
}

TEST_F(WorldViewScrollBars, AHigherWorldHasOnlyTheVerticalBarAndIsCentredInTheWidthLeft)
{
    Open({100, 1000}, 500, 400);
    EXPECT_FALSE(HasBar(WS_HSCROLL));
    EXPECT_TRUE(HasBar(WS_VSCROLL));
    const int iLeft = (500 - m_iBarWidth - 100) / 2;
    EXPECT_EQ((CRect{iLeft, 0, iLeft + 100, 1000}), m_pView->GetWorldRect());
}

TEST_F(WorldViewScrollBars, ALargerWorldHasBothBarsOverItsWholeRange)
{
    OpenLarge();
    EXPECT_TRUE(HasBar(WS_HSCROLL));
    EXPECT_TRUE(HasBar(WS_VSCROLL));
    EXPECT_EQ(0, GetBar(SB_VERT).nMin);
    EXPECT_EQ(9998, GetBar(SB_VERT).nMax);
    EXPECT_EQ(static_cast<UINT>(240 - m_iBarHeight), GetBar(SB_VERT).nPage);
    EXPECT_EQ(9998, GetBar(SB_HORZ).nMax);
    EXPECT_EQ(static_cast<UINT>(320 - m_iBarWidth), GetBar(SB_HORZ).nPage);
    ExpectPosition(0, 0);
}

TEST_F(WorldViewScrollBars, TheBarsGoWhenTheViewGrowsAndComeBackWhenItShrinks)
{
    Open({400, 300}, 200, 100);
    EXPECT_TRUE(HasBar(WS_HSCROLL));
    EXPECT_TRUE(HasBar(WS_VSCROLL));
    // Exactly as large as the world: only without the bars does it fit.
    MoveView(0, 0, 400, 300);
    EXPECT_FALSE(HasBar(WS_HSCROLL));
    EXPECT_FALSE(HasBar(WS_VSCROLL));
    EXPECT_EQ((CRect{0, 0, 400, 300}), m_pView->GetWorldRect());
    MoveView(0, 0, 399, 299);
    EXPECT_TRUE(HasBar(WS_HSCROLL));
    EXPECT_TRUE(HasBar(WS_VSCROLL));
}

// A world that has become smaller must not keep the bars of the one before, though they have made the view narrower.
TEST_F(WorldViewScrollBars, TheBarsGoWhenTheNextWorldFits)
{
    Open({512, 512}, 200, 200);
    EXPECT_TRUE(HasBar(WS_HSCROLL));
    EXPECT_TRUE(HasBar(WS_VSCROLL));
    m_sizeWorld = {200, 200};
    ASSERT_TRUE(Start_Speed());
    EXPECT_FALSE(HasBar(WS_HSCROLL));
    EXPECT_FALSE(HasBar(WS_VSCROLL));
    EXPECT_EQ((CRect{0, 0, 200, 200}), m_pView->GetWorldRect());
}

TEST_F(WorldViewScrollBars, GrowingTheViewPullsThePositionBackIntoTheNewRange)
{
    Open({1000, 1000}, 200, 200);
    SetPosition(SB_VERT, 5000);
    SetPosition(SB_HORZ, 5000);
    MoveView(0, 0, 600, 500);
    m_pView->SetControlPositions(-1, -1);
    EXPECT_EQ(1000 - (500 - m_iBarHeight), GetBar(SB_VERT).nPos);
    EXPECT_EQ(1000 - (600 - m_iBarWidth), GetBar(SB_HORZ).nPos);
    EXPECT_EQ(-GetBar(SB_VERT).nPos, m_pView->GetWorldRect().top);
    EXPECT_EQ(-GetBar(SB_HORZ).nPos, m_pView->GetWorldRect().left);
}

TEST_F(WorldViewScrollBars, ShrinkingTheViewUntilABarIsShownKeepsThePositionInTheRange)
{
    Open({1000, 1000}, 1100, 600);
    EXPECT_FALSE(HasBar(WS_HSCROLL));
    SetPosition(SB_VERT, 1000);
    const int iVertical = GetBar(SB_VERT).nPos;
    EXPECT_EQ(400, iVertical);
    MoveView(0, 0, 500, 600);
    EXPECT_TRUE(HasBar(WS_HSCROLL));
    EXPECT_EQ(0, GetBar(SB_HORZ).nPos);
    EXPECT_LE(GetBar(SB_VERT).nPos, 1000 - (600 - m_iBarHeight));
    EXPECT_GE(GetBar(SB_VERT).nPos, iVertical);
    EXPECT_EQ(-GetBar(SB_VERT).nPos, m_pView->GetWorldRect().top);
}

TEST_F(WorldViewScrollBars, WithoutScrollingALargerWorldIsCentredAndTheBarsStayAsTheyAre)
{
    OpenLarge();
    Scatter(3, 5);
    ASSERT_TRUE(Start_Speed(true));
    EXPECT_TRUE(HasBar(WS_HSCROLL));
    EXPECT_TRUE(HasBar(WS_VSCROLL));
    const CSize<int> size = GetClient();
    EXPECT_EQ((size.cx - 9999) / 2, m_pView->GetWorldRect().left);
    EXPECT_EQ((size.cy - 9999) / 2, m_pView->GetWorldRect().top);
    EXPECT_EQ(9999, m_pView->GetWorldRect().GetWidth());
}

TEST_F(WorldViewScrollBars, TheRenderTargetFollowsTheClientArea)
{
    OpenLarge();
    Scatter(3, 5);
    ASSERT_TRUE(Start_Speed());
    EXPECT_EQ(320 - m_iBarWidth, GetDirect2DSpy().sizeCreated.cx);
    EXPECT_EQ(240 - m_iBarHeight, GetDirect2DSpy().sizeCreated.cy);
    MoveView(0, 0, 500, 400);
    ASSERT_FALSE(GetDirect2DSpy().resizes.empty());
    EXPECT_EQ(500 - m_iBarWidth, GetDirect2DSpy().resizes.back().cx);
    EXPECT_EQ(400 - m_iBarHeight, GetDirect2DSpy().resizes.back().cy);
    ASSERT_TRUE(Start_Speed(true));
    EXPECT_EQ(500 - m_iBarWidth, GetDirect2DSpy().resizes.back().cx);
}
