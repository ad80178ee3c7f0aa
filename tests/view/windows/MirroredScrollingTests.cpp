#include "tests/view/windows/CScrollingTest.h"
#include "tests/view/windows/ScreenCapture.h"

// The system counts the positions of a horizontal bar from the right in a view that is laid out from right to left. The
// world is not mirrored: the thumb at the left end of the bar must show its left edge.

namespace
{

class MirroredWorldViewScrolling : public CScrollingTest
{
protected:
    int GetLastPosition() const { return 9999 - (320 - m_iBarWidth); }

    // Expects that iLeft pixels of the world are left of the view, and that the thumb stands there.
    void ExpectHidden(int iLeft) const
    {
        EXPECT_EQ(m_pView->GetWorldRect().left, -iLeft);
        EXPECT_EQ(GetBar(SB_HORZ).nPos, GetLastPosition() - iLeft);
    }
};

} // namespace

TEST_F(MirroredWorldViewScrolling, TheWorldIsFirstShownAtItsLeftEdgeWithTheThumbAtTheLeft)
{
    OpenLarge_Mirrored();
    ExpectHidden(0);
}

TEST_F(MirroredWorldViewScrolling, EachRequestMovesTheWorldToTheSideOfTheThumb)
{
    OpenLarge_Mirrored();
    const int iPage = 320 - m_iBarWidth;
    Scroll(WM_HSCROLL, SB_LINELEFT); // from the arrow at the right end
    ExpectHidden(10);
    Scroll(WM_HSCROLL, SB_PAGELEFT);
    ExpectHidden(10 + iPage);
    Scroll(WM_HSCROLL, SB_LINERIGHT);
    ExpectHidden(iPage);
    Scroll(WM_HSCROLL, SB_PAGERIGHT);
    ExpectHidden(0);
    Scroll(WM_HSCROLL, SB_LEFT);
    ExpectHidden(GetLastPosition());
    Scroll(WM_HSCROLL, SB_RIGHT);
    ExpectHidden(0);
}

// Runs the system's own drag loop: press the button at the left end of the bar, on the thumb, and drag it to the right.
TEST_F(MirroredWorldViewScrolling, DraggingTheThumbFromTheLeftEndToTheRightShowsWhatIsRight)
{
    OpenLarge_Mirrored();
    const RECT rcClient = GetClientAreaOnScreen(GetViewHandle());
    constexpr int c_iIntoThumb = 4;
    constexpr int c_iDrag = 60; // pixels; the thumb can travel about 250
    const POINT ptScreen{rcClient.left + GetSystemMetrics(SM_CXHSCROLL) + c_iIntoThumb,
                         rcClient.bottom + m_iBarHeight / 2};
    const auto toClient = [this](POINT pt) {
        ScreenToClient(GetViewHandle(), &pt);
        return MAKELPARAM(pt.x, pt.y);
    };
    for (const int iMoved : {c_iDrag / 2, c_iDrag})
    {
        PostMessageW(GetViewHandle(), WM_MOUSEMOVE, MK_LBUTTON, toClient({ptScreen.x + iMoved, ptScreen.y}));
    }
    PostMessageW(GetViewHandle(), WM_LBUTTONUP, 0, toClient({ptScreen.x + c_iDrag, ptScreen.y}));
    Send(WM_NCLBUTTONDOWN, HTHSCROLL, MAKELPARAM(ptScreen.x, ptScreen.y));
    EXPECT_LT(m_pView->GetWorldRect().left, -1000);
    ExpectHidden(-m_pView->GetWorldRect().left);
}

TEST_F(MirroredWorldViewScrolling, AnotherWidthOfTheViewKeepsTheLeftEdge)
{
    OpenLarge_Mirrored();
    Scroll(WM_HSCROLL, SB_PAGELEFT);
    const int iHidden = -m_pView->GetWorldRect().left;
    EXPECT_EQ(iHidden, 320 - m_iBarWidth);
    MoveView(0, 0, 500, 240);
    m_pView->SetControlPositions(-1, -1);
    EXPECT_EQ(m_pView->GetWorldRect().left, -iHidden);
    EXPECT_EQ(GetBar(SB_HORZ).nPos, 9999 - (500 - m_iBarWidth) - iHidden);
}

TEST_F(MirroredWorldViewScrolling, TheVerticalBarCountsFromTheTop)
{
    OpenLarge_Mirrored();
    Scroll(WM_VSCROLL, SB_LINEDOWN);
    EXPECT_EQ(m_pView->GetWorldRect().top, -10);
    EXPECT_EQ(GetBar(SB_VERT).nPos, 10);
}
