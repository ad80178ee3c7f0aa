#include "tests/view/windows/CScrollingTest.h"

void CScrollingTest::OpenLarge()
{
    Open({9999, 9999}, 320, 240);
    m_pView->SetControlPositions(-1, -1); // the bars have changed the client area since
}

void CScrollingTest::Scroll(UINT uMessage, unsigned uRequest)
{
    EXPECT_EQ(0, Send(uMessage, MAKEWPARAM(uRequest, 0)));
}

void CScrollingTest::SetPosition(int iBar, int iPosition)
{
    SetScrollPos(GetViewHandle(), iBar, iPosition, FALSE);
    m_pView->SetControlPositions(-1, -1);
}

void CScrollingTest::TurnWheel(int iDelta)
{
    EXPECT_EQ(0, Send(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(iDelta))));
}

void CScrollingTest::ExpectPosition(int iHorizontal, int iVertical)
{
    EXPECT_EQ(iHorizontal, GetBar(SB_HORZ).nPos);
    EXPECT_EQ(iVertical, GetBar(SB_VERT).nPos);
    EXPECT_EQ((CRect{-iHorizontal, -iVertical, 9999 - iHorizontal, 9999 - iVertical}), m_pView->GetWorldRect());
}
