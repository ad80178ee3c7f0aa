#include "tests/view/windows/CScrollingTest.h"

// Tests everything that scrolls the world: the bars, their thumbs and the wheel.

namespace
{

using WorldViewScrolling = CScrollingTest;

} // namespace

TEST_F(WorldViewScrolling, EachRequestOfTheVerticalBarMovesTheWorld)
{
    OpenLarge();
    const int iPage = 240 - m_iBarHeight;
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
    const int iPage = 320 - m_iBarWidth;
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

TEST_F(WorldViewScrolling, ReleasingTheThumbAndTheEndOfScrollingDoNothing)
{
    OpenLarge();
    Scatter(3, 5);
    ASSERT_TRUE(Start_Speed());
    SetPosition(SB_VERT, 1000);
    const int iFrames = GetDirect2DSpy().iBeginDraw;
    EXPECT_EQ(Send(WM_VSCROLL, MAKEWPARAM(SB_THUMBPOSITION, 500)), 0);
    EXPECT_EQ(Send(WM_VSCROLL, MAKEWPARAM(SB_ENDSCROLL, 0)), 0);
    EXPECT_EQ(Send(WM_HSCROLL, MAKEWPARAM(SB_THUMBPOSITION, 500)), 0);
    ExpectPosition(0, 1000);
    EXPECT_EQ(GetDirect2DSpy().iBeginDraw, iFrames);
}

// Outside a drag the system reports the current position as the dragged position. The world does not move but is drawn
// again.
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
    EXPECT_EQ(GetDirect2DSpy().iBeginDraw, iFrames + 1);
}

// Runs the system's own drag loop: press the button on the thumb, move the mouse, release the button. The world follows
// the mouse at once, and the release changes nothing.
TEST_F(WorldViewScrolling, DraggingTheThumbMovesTheWorld)
{
    OpenLarge();
    RECT rcWindow{};
    GetWindowRect(GetViewHandle(), &rcWindow);
    constexpr int c_iIntoThumb = 4;
    constexpr int c_iDrag = 60; // pixels; the thumb can travel about 200
    const POINT ptScreen{rcWindow.right - m_iBarWidth / 2,
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

TEST_F(WorldViewScrolling, AnUnknownRequestOnlyRedraws)
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
    ExpectPosition(0, 9999 - (240 - m_iBarHeight));
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
    EXPECT_EQ(GetBar(SB_VERT).nPos, 1000);
    EXPECT_EQ(m_pView->GetWorldRect(), rcWorld);
    EXPECT_EQ(GetDirect2DSpy().iBeginDraw, iFrames);
}
