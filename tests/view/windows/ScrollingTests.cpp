#include "tests/view/windows/CViewTest.h"

#include <gtest/gtest.h>

namespace
{

class WorldViewScrolling : public CViewTest
{
protected:
    // A world of 9,999 x 9,999 behind a view of 320 x 240.
    void OpenLarge()
    {
        Open({9999, 9999}, 320, 240);
        m_pView->SetControlPositions(-1, -1); // the bars have changed the client area since
    }

    void Scroll(UINT uMessage, unsigned uRequest) { EXPECT_EQ(0, Send(uMessage, MAKEWPARAM(uRequest, 0))); }

    void SetPosition(int iBar, int iPosition)
    {
        SetScrollPos(GetViewHandle(), iBar, iPosition, FALSE);
        m_pView->SetControlPositions(-1, -1);
    }

    void TurnWheel(int iDelta) { EXPECT_EQ(0, Send(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(iDelta)))); }

    // The place of the world must always be what the bars say.
    void ExpectPosition(int iHorizontal, int iVertical)
    {
        EXPECT_EQ(iHorizontal, GetBar(SB_HORZ).nPos);
        EXPECT_EQ(iVertical, GetBar(SB_VERT).nPos);
        EXPECT_EQ((CRect{-iHorizontal, -iVertical, 9999 - iHorizontal, 9999 - iVertical}), m_pView->GetWorldRect());
    }
};

const int c_iBarWidth = GetSystemMetrics(SM_CXVSCROLL);
const int c_iBarHeight = GetSystemMetrics(SM_CYHSCROLL);

} // namespace

TEST_F(WorldViewScrolling, ASmallerWorldHasNoBarsAndIsCentred)
{
    Open({300, 201}, 500, 400);
    EXPECT_FALSE(HasBar(WS_HSCROLL));
    EXPECT_FALSE(HasBar(WS_VSCROLL));
    EXPECT_EQ((CSize<int>{500, 400}), GetClient());
    EXPECT_EQ((CRect{100, 99, 400, 300}), m_pView->GetWorldRect());
}

TEST_F(WorldViewScrolling, AWiderWorldHasOnlyTheHorizontalBarAndIsCentredInTheHeightLeft)
{
    Open({1000, 100}, 500, 400);
    EXPECT_TRUE(HasBar(WS_HSCROLL));
    EXPECT_FALSE(HasBar(WS_VSCROLL));
    EXPECT_EQ((CSize<int>{500, 400 - c_iBarHeight}), GetClient());
    const int iTop = (400 - c_iBarHeight - 100) / 2;
    EXPECT_EQ((CRect{0, iTop, 1000, iTop + 100}), m_pView->GetWorldRect());
    EXPECT_EQ(999, GetBar(SB_HORZ).nMax);
    EXPECT_EQ(500U, GetBar(SB_HORZ).nPage);
}

TEST_F(WorldViewScrolling, AHigherWorldHasOnlyTheVerticalBarAndIsCentredInTheWidthLeft)
{
    Open({100, 1000}, 500, 400);
    EXPECT_FALSE(HasBar(WS_HSCROLL));
    EXPECT_TRUE(HasBar(WS_VSCROLL));
    const int iLeft = (500 - c_iBarWidth - 100) / 2;
    EXPECT_EQ((CRect{iLeft, 0, iLeft + 100, 1000}), m_pView->GetWorldRect());
}

TEST_F(WorldViewScrolling, ALargerWorldHasBothBarsOverItsWholeRange)
{
    OpenLarge();
    EXPECT_TRUE(HasBar(WS_HSCROLL));
    EXPECT_TRUE(HasBar(WS_VSCROLL));
    EXPECT_EQ(0, GetBar(SB_VERT).nMin);
    EXPECT_EQ(9998, GetBar(SB_VERT).nMax);
    EXPECT_EQ(static_cast<UINT>(240 - c_iBarHeight), GetBar(SB_VERT).nPage);
    EXPECT_EQ(9998, GetBar(SB_HORZ).nMax);
    EXPECT_EQ(static_cast<UINT>(320 - c_iBarWidth), GetBar(SB_HORZ).nPage);
    ExpectPosition(0, 0);
}

TEST_F(WorldViewScrolling, TheBarsGoWhenTheViewGrowsAndComeBackWhenItShrinks)
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
TEST_F(WorldViewScrolling, TheBarsGoWhenTheNextWorldFits)
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

TEST_F(WorldViewScrolling, GrowingTheViewPullsThePositionBackIntoTheNewRange)
{
    Open({1000, 1000}, 200, 200);
    SetPosition(SB_VERT, 5000);
    SetPosition(SB_HORZ, 5000);
    MoveView(0, 0, 600, 500);
    m_pView->SetControlPositions(-1, -1);
    EXPECT_EQ(1000 - (500 - c_iBarHeight), GetBar(SB_VERT).nPos);
    EXPECT_EQ(1000 - (600 - c_iBarWidth), GetBar(SB_HORZ).nPos);
    EXPECT_EQ(-GetBar(SB_VERT).nPos, m_pView->GetWorldRect().top);
    EXPECT_EQ(-GetBar(SB_HORZ).nPos, m_pView->GetWorldRect().left);
}

TEST_F(WorldViewScrolling, ShrinkingTheViewUntilABarIsShownKeepsThePositionInTheRange)
{
    Open({1000, 1000}, 1100, 600);
    EXPECT_FALSE(HasBar(WS_HSCROLL));
    SetPosition(SB_VERT, 1000);
    const int iVertical = GetBar(SB_VERT).nPos;
    EXPECT_EQ(400, iVertical);
    MoveView(0, 0, 500, 600);
    EXPECT_TRUE(HasBar(WS_HSCROLL));
    EXPECT_EQ(0, GetBar(SB_HORZ).nPos);
    EXPECT_LE(GetBar(SB_VERT).nPos, 1000 - (600 - c_iBarHeight));
    EXPECT_GE(GetBar(SB_VERT).nPos, iVertical);
    EXPECT_EQ(-GetBar(SB_VERT).nPos, m_pView->GetWorldRect().top);
}

TEST_F(WorldViewScrolling, EachRequestOfTheVerticalBarMovesTheWorld)
{
    OpenLarge();
    const int iPage = 240 - c_iBarHeight;
    SetPosition(SB_VERT, 1000);
    Scroll(WM_VSCROLL, SB_LINEDOWN);
    ExpectPosition(0, 1010);
    Scroll(WM_VSCROLL, SB_LINEUP);
    ExpectPosition(0, 1000);
    Scroll(WM_VSCROLL, SB_PAGEDOWN);
    ExpectPosition(0, 1000 + iPage);
    Scroll(WM_VSCROLL, SB_PAGEUP);
    ExpectPosition(0, 1000);
    Scroll(WM_VSCROLL, SB_BOTTOM);
    ExpectPosition(0, 9999 - iPage);
    Scroll(WM_VSCROLL, SB_LINEDOWN);
    ExpectPosition(0, 9999 - iPage);
    Scroll(WM_VSCROLL, SB_TOP);
    ExpectPosition(0, 0);
    Scroll(WM_VSCROLL, SB_LINEUP);
    ExpectPosition(0, 0);
}

TEST_F(WorldViewScrolling, EachRequestOfTheHorizontalBarMovesTheWorld)
{
    OpenLarge();
    const int iPage = 320 - c_iBarWidth;
    Scroll(WM_HSCROLL, SB_PAGEDOWN);
    Scroll(WM_HSCROLL, SB_LINEDOWN);
    ExpectPosition(iPage + 10, 0);
    Scroll(WM_HSCROLL, SB_LINEUP);
    Scroll(WM_HSCROLL, SB_PAGEUP);
    ExpectPosition(0, 0);
    Scroll(WM_HSCROLL, SB_BOTTOM);
    ExpectPosition(9999 - iPage, 0);
    Scroll(WM_HSCROLL, SB_TOP);
    ExpectPosition(0, 0);
}

TEST_F(WorldViewScrolling, ReleasingTheThumbAndTheEndOfScrollingDoNothingAtAll)
{
    OpenLarge();
    Scatter(3, 5);
    ASSERT_TRUE(Start_Speed());
    SetPosition(SB_VERT, 1000);
    const int iFrames = GetDirect2DSpy().iBeginDraw;
    EXPECT_EQ(0, Send(WM_VSCROLL, MAKEWPARAM(SB_THUMBPOSITION, 500)));
    EXPECT_EQ(0, Send(WM_VSCROLL, MAKEWPARAM(SB_ENDSCROLL, 0)));
    EXPECT_EQ(0, Send(WM_HSCROLL, MAKEWPARAM(SB_THUMBPOSITION, 500)));
    ExpectPosition(0, 1000);
    EXPECT_EQ(iFrames, GetDirect2DSpy().iBeginDraw);
}

// Outside a drag the system reports the present position as the dragged one: the world stays, but is drawn again.
TEST_F(WorldViewScrolling, DraggingFollowsThePositionThatTheSystemReports)
{
    OpenLarge();
    Scatter(3, 5);
    ASSERT_TRUE(Start_Speed());
    SetPosition(SB_VERT, 1000);
    const int iFrames = GetDirect2DSpy().iBeginDraw;
    const int iDragged = GetBar(SB_VERT).nTrackPos;
    Scroll(WM_VSCROLL, SB_THUMBTRACK);
    ExpectPosition(0, iDragged);
    EXPECT_EQ(iFrames + 1, GetDirect2DSpy().iBeginDraw);
}

// The system's own drag loop: the button goes down on the thumb, the mouse moves, the button goes up. The world follows
// the mouse at once, and letting go changes nothing any more.
TEST_F(WorldViewScrolling, DraggingTheThumbMovesTheWorld)
{
    OpenLarge();
    RECT rcWindow{};
    GetWindowRect(GetViewHandle(), &rcWindow);
    constexpr int c_iIntoThumb = 4;
    constexpr int c_iDrag = 60; // pixels, of about 200 that the thumb can travel
    const POINT ptScreen{rcWindow.right - c_iBarWidth / 2,
                         rcWindow.top + GetSystemMetrics(SM_CYVSCROLL) + c_iIntoThumb};
    POINT ptClient = ptScreen;
    ScreenToClient(GetViewHandle(), &ptClient);
    for (const int iMoved : {c_iDrag / 2, c_iDrag})
    {
        PostMessageW(GetViewHandle(), WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(ptClient.x, ptClient.y + iMoved));
    }
    PostMessageW(GetViewHandle(), WM_LBUTTONUP, 0, MAKELPARAM(ptClient.x, ptClient.y + c_iDrag));
    Send(WM_NCLBUTTONDOWN, HTVSCROLL, MAKELPARAM(ptScreen.x, ptScreen.y));
    EXPECT_GT(GetBar(SB_VERT).nPos, 1000);
    ExpectPosition(0, GetBar(SB_VERT).nPos);
}

TEST_F(WorldViewScrolling, AnUnknownRequestOnlyDrawsAgain)
{
    OpenLarge();
    SetPosition(SB_VERT, 1000);
    Scroll(WM_VSCROLL, 9);
    ExpectPosition(0, 1000);
}

TEST_F(WorldViewScrolling, AWheelNotchMovesSixtyPixelsVertically)
{
    OpenLarge();
    SetPosition(SB_VERT, 1000);
    SetPosition(SB_HORZ, 500);
    TurnWheel(WHEEL_DELTA);
    ExpectPosition(500, 940);
    TurnWheel(-WHEEL_DELTA);
    TurnWheel(-WHEEL_DELTA);
    ExpectPosition(500, 1060);
    TurnWheel(3);
    ExpectPosition(500, 1059);
}

TEST_F(WorldViewScrolling, TheWheelStopsAtTheEnds)
{
    OpenLarge();
    SetPosition(SB_VERT, 30);
    TurnWheel(WHEEL_DELTA);
    ExpectPosition(0, 0);
    Scroll(WM_VSCROLL, SB_BOTTOM);
    TurnWheel(-WHEEL_DELTA);
    ExpectPosition(0, 9999 - (240 - c_iBarHeight));
}

TEST_F(WorldViewScrolling, WithoutScrollingTheWheelDoesNothing)
{
    OpenLarge();
    Scatter(3, 5);
    SetPosition(SB_VERT, 1000);
    ASSERT_TRUE(Start_Speed(true));
    const CRect rcWorld = m_pView->GetWorldRect();
    const int iFrames = GetDirect2DSpy().iBeginDraw;
    TurnWheel(WHEEL_DELTA);
    EXPECT_EQ(1000, GetBar(SB_VERT).nPos);
    EXPECT_EQ(rcWorld, m_pView->GetWorldRect());
    EXPECT_EQ(iFrames, GetDirect2DSpy().iBeginDraw);
}

TEST_F(WorldViewScrolling, WithoutScrollingALargerWorldIsCentredAndTheBarsStayAsTheyAre)
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

TEST_F(WorldViewScrolling, TheRenderTargetFollowsTheClientArea)
{
    OpenLarge();
    Scatter(3, 5);
    ASSERT_TRUE(Start_Speed());
    EXPECT_EQ(320 - c_iBarWidth, GetDirect2DSpy().sizeCreated.cx);
    EXPECT_EQ(240 - c_iBarHeight, GetDirect2DSpy().sizeCreated.cy);
    MoveView(0, 0, 500, 400);
    ASSERT_FALSE(GetDirect2DSpy().resizes.empty());
    EXPECT_EQ(500 - c_iBarWidth, GetDirect2DSpy().resizes.back().cx);
    EXPECT_EQ(400 - c_iBarHeight, GetDirect2DSpy().resizes.back().cy);
    ASSERT_TRUE(Start_Speed(true));
    EXPECT_EQ(500 - c_iBarWidth, GetDirect2DSpy().resizes.back().cx);
}
