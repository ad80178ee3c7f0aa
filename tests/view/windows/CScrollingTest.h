#pragma once

#include "tests/view/windows/CViewTest.h"

// A view that may be smaller than the world behind it, and its scroll bars.
class CScrollingTest : public CViewTest
{
protected:
    // A world of 9,999 x 9,999 behind a view of 320 x 240.
    void OpenLarge();

    // Sends a request of a scroll bar.
    void Scroll(UINT uMessage, unsigned uRequest);
    // Moves a bar, and the world with it.
    void SetPosition(int iBar, int iPosition);
    void TurnWheel(int iDelta);

    // The place of the large world must always be what the bars say.
    void ExpectPosition(int iHorizontal, int iVertical);

    const int m_iBarWidth = GetSystemMetrics(SM_CXVSCROLL);
    const int m_iBarHeight = GetSystemMetrics(SM_CYHSCROLL);
};
