#pragma once

#include "tests/view/windows/CViewTest.h"

// A view with scroll bars that may be smaller than the world.
class CScrollingTest : public CViewTest
{
protected:
    // Opens a view of 320 x 240 on a world of 9,999 x 9,999.
    void OpenLarge();
    // The same in a language that is read from right to left.
    void OpenLarge_Mirrored();

    // Sends a request of a scroll bar.
    void Scroll(UINT uMessage, unsigned uRequest);
    // Moves a bar, and the world with it.
    void SetPosition(int iBar, int iPosition);
    void TurnWheel(int iDelta);

    // Expects that the position of the large world matches the bars.
    void ExpectPosition(int iHorizontal, int iVertical);

    const int m_iBarWidth = GetSystemMetrics(SM_CXVSCROLL);
    const int m_iBarHeight = GetSystemMetrics(SM_CYHSCROLL);
};
