#include "tests/view/windows/CViewPictureTest.h"

// In a right-to-left view the scroll bars change sides, but the world is not mirrored, so that a click starts the atoms
// at the point that the user sees.

namespace
{

constexpr std::int32_t c_iAtoms = 60;
constexpr std::uint8_t c_uRadius = 12;

class MirroredViewPicture : public CViewPictureTest
{
protected:
    void OpenMirrored(const CSize<int>& sizeWorld, std::int32_t count)
    {
        Open(sizeWorld, 300, 200, EnumPicDrawMode::Tiled, CTestParent::c_byRightToLeft);
        ASSERT_NE(GetWindowLongW(GetViewHandle(), GWL_EXSTYLE) & WS_EX_LAYOUTRTL, 0);
        Scatter(count, c_uRadius);
    }
};

} // namespace

TEST_F(MirroredViewPicture, Direct2DDrawsTheWorldUnmirrored)
{
    ShowDirect2D();
    OpenMirrored({260, 160}, c_iAtoms);
    ASSERT_TRUE(Start_Speed());
    ExpectScreen(MakeScene(c_fEdgeDirect2D));
}

TEST_F(MirroredViewPicture, GdiDrawsTheWorldUnmirroredToo)
{
    GetDirect2DSpy().hrFactory = E_FAIL;
    OpenMirrored({260, 160}, c_iAtoms);
    EXPECT_FALSE(Start_Speed());
    ExpectScreen(MakeScene(c_fEdgeGdi));
}

TEST_F(MirroredViewPicture, GdiDrawsAScrolledWorldAtThePositionOfTheBars)
{
    GetDirect2DSpy().hrFactory = E_FAIL;
    OpenMirrored({700, 500}, 4 * c_iAtoms);
    EXPECT_FALSE(Start_Speed());
    Send(WM_HSCROLL, MAKEWPARAM(SB_PAGELEFT, 0)); // the bar counts from the right
    Send(WM_VSCROLL, MAKEWPARAM(SB_PAGEDOWN, 0));
    EXPECT_LT(m_pView->GetWorldRect().left, -100);
    EXPECT_EQ(m_pView->GetWorldRect().left, GetBar(SB_HORZ).nPos - (700 - GetClient().cx));
    ExpectScreen(MakeScene(c_fEdgeGdi));
}
