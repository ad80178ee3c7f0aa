#include "tests/view/windows/CScrollingTest.h"

void CScrollingTest::OpenLarge()
{
    Open({9999, 9999}, 320, 240);
    m_pView->SetControlPositions(-1, -1); // the bars have changed the client area
}

void CScrollingTest::OpenLarge_Mirrored()
{
    Open({9999, 9999}, 320, 240, EnumPicDrawMode::Tiled, CTestParent::c_byRightToLeft);
    m_pView->SetControlPositions(-1, -1);
}

void CScrollingTest::Scroll(UINT uMessage, unsigned uRequest)
{
    EXPECT_EQ(Send(uMessage, MAKEWPARAM(uRequest, 0)), 0);
}

void CScrollingTest::SetPosition(int iBar, int iPosition)
{
    SetScrollPos(GetViewHandle(), iBar, iPosition, FALSE);
    m_pView->SetControlPositions(-1, -1);
}

void CScrollingTest::TurnWheel(int iDelta)
{
    EXPECT_EQ(Send(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(iDelta))), 0);
}

void CScrollingTest::ExpectPosition(int iHorizontal, int iVertical)
{
    EXPECT_EQ(GetBar(SB_HORZ).nPos, iHorizontal);
    EXPECT_EQ(GetBar(SB_VERT).nPos, iVertical);
    EXPECT_EQ(m_pView->GetWorldRect(), (CRect{-iHorizontal, -iVertical, 9999 - iHorizontal, 9999 - iVertical}));
}
