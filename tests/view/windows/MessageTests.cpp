#include "tests/view/windows/CViewTest.h"
#include "tests/view/windows/SpyFactory.h"

#include <commctrl.h>

#include <gtest/gtest.h>

#include <array>

namespace
{

constexpr int c_iViewLeft = 20; // of the view in its parent
constexpr int c_iViewTop = 30;

class WorldViewMessages : public CViewTest
{
protected:
    void SetUp() override
    {
        Open({500, 400}, 300, 200);
        m_pParent->ForgetReceived();
    }

    const CReceivedMessage& GetOnly() const
    {
        EXPECT_EQ(m_pParent->GetReceived().size(), 1U);
        return m_pParent->GetReceived().at(0);
    }
};

POINT GetPoint(LPARAM lParam)
{
    return {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
}

} // namespace

TEST_F(WorldViewMessages, TheParentGetsAClickInItsOwnCoordinates)
{
    EXPECT_EQ(Send(WM_LBUTTONUP, MK_CONTROL, MAKELPARAM(7, 11)), CTestParent::c_iAnswer);
    EXPECT_EQ(GetOnly().uMessage, static_cast<UINT>(WM_LBUTTONUP));
    EXPECT_EQ(GetOnly().wParam, static_cast<WPARAM>(MK_CONTROL));
    EXPECT_EQ(GetPoint(GetOnly().lParam).x, c_iViewLeft + 7);
    EXPECT_EQ(GetPoint(GetOnly().lParam).y, c_iViewTop + 11);
}

TEST_F(WorldViewMessages, AClickLeftOfTheViewAndAboveItKeepsItsSign)
{
    Send(WM_LBUTTONUP, 0, MAKELPARAM(-50, -60));
    EXPECT_EQ(GetPoint(GetOnly().lParam).x, c_iViewLeft - 50);
    EXPECT_EQ(GetPoint(GetOnly().lParam).y, c_iViewTop - 60);
}

TEST_F(WorldViewMessages, ALeftClickTakesTheFocusAndARightClickDoesNot)
{
    SetFocus(m_pParent->GetWindowHandle());
    EXPECT_EQ(Send(WM_RBUTTONUP, MK_SHIFT, MAKELPARAM(7, 11)), CTestParent::c_iAnswer);
    EXPECT_NE(GetFocus(), GetViewHandle());
    EXPECT_EQ(GetOnly().uMessage, static_cast<UINT>(WM_RBUTTONUP));
    EXPECT_EQ(GetOnly().wParam, static_cast<WPARAM>(MK_SHIFT));
    EXPECT_EQ(GetPoint(GetOnly().lParam).x, c_iViewLeft + 7);
    EXPECT_EQ(GetPoint(GetOnly().lParam).y, c_iViewTop + 11);
    Send(WM_LBUTTONUP, 0, MAKELPARAM(7, 11));
    EXPECT_EQ(GetFocus(), GetViewHandle());
}

TEST_F(WorldViewMessages, AKeyIsForwardedUnchangedWhenItIsReleased)
{
    constexpr LPARAM c_lFlags = 0x00570001; // scan code and repeat count of F11
    EXPECT_EQ(Send(WM_KEYUP, VK_F11, c_lFlags), CTestParent::c_iAnswer);
    EXPECT_EQ(GetOnly().uMessage, static_cast<UINT>(WM_KEYUP));
    EXPECT_EQ(GetOnly().wParam, static_cast<WPARAM>(VK_F11));
    EXPECT_EQ(GetOnly().lParam, c_lFlags);
    m_pParent->ForgetReceived();
    Send(WM_KEYDOWN, VK_F11, c_lFlags);
    EXPECT_TRUE(m_pParent->GetReceived().empty());
}

TEST_F(WorldViewMessages, SixNotificationsAreForwardedUnchanged)
{
    for (const UINT uCode :
         {0x201U, 0x202U, 0x204U, 0x205U, static_cast<UINT>(NM_RCLICK), static_cast<UINT>(NM_DBLCLK)})
    {
        m_pParent->ForgetReceived();
        NMHDR header{GetViewHandle(), 5, uCode};
        EXPECT_EQ(Send(WM_NOTIFY, 5, reinterpret_cast<LPARAM>(&header)), CTestParent::c_iAnswer);
        EXPECT_EQ(GetOnly().uMessage, static_cast<UINT>(WM_NOTIFY));
        EXPECT_EQ(GetOnly().wParam, 5U);
        EXPECT_EQ(GetOnly().lParam, reinterpret_cast<LPARAM>(&header));
    }
}

TEST_F(WorldViewMessages, OtherNotificationsAreNotForwarded)
{
    for (const UINT uCode : {0x200U, 0x203U, 0x206U, static_cast<UINT>(NM_CLICK), static_cast<UINT>(NM_RDBLCLK), 0U})
    {
        NMHDR header{GetViewHandle(), 5, uCode};
        EXPECT_EQ(Send(WM_NOTIFY, 5, reinterpret_cast<LPARAM>(&header)), 0);
    }
    EXPECT_EQ(Send(WM_NOTIFY, 5, 0), 0);
    EXPECT_TRUE(m_pParent->GetReceived().empty());
}

TEST_F(WorldViewMessages, ErasingTheBackgroundDrawsOneFrameAndReportsItAsHandled)
{
    Scatter(3, 5);
    ASSERT_TRUE(Start_Speed());
    const int iFrames = GetDirect2DSpy().iBeginDraw;
    EXPECT_EQ(Send(WM_ERASEBKGND), 1);
    EXPECT_EQ(GetDirect2DSpy().iBeginDraw, iFrames + 1);
    EXPECT_EQ(GetDirect2DSpy().iEndDraw, iFrames + 1);
}

TEST_F(WorldViewMessages, AChangeOfSizePlacesTheWorldAndDrawsAFrame)
{
    Scatter(3, 5);
    ASSERT_TRUE(Start_Speed());
    const int iFrames = GetDirect2DSpy().iBeginDraw;
    MoveView(0, 0, 700, 600);
    EXPECT_LT(iFrames, GetDirect2DSpy().iBeginDraw);
    EXPECT_EQ(m_pView->GetWorldRect(), (CRect{100, 100, 600, 500}));
    EXPECT_EQ(Send(WM_SIZE), 0);
}

// By default the view has no cursor of its own, and the system sets the cursor of the class.
TEST_F(WorldViewMessages, TheDefaultCursorIsTheCursorOfTheClass)
{
    SetCursor(nullptr);
    Send(WM_SETCURSOR, reinterpret_cast<WPARAM>(GetViewHandle()), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    EXPECT_EQ(GetCursor(), m_pParent->GetCursor(false));
}

namespace
{

// A view with a cursor of its own.
class CCrossView final : public CWndWorldView
{
public:
    CCrossView(const CWndCommon* pParent, const CAtoms& atoms)
        : CWndWorldView(pParent, {500, 400}, atoms, CreateSpyFactory)
    {
        m_bOwnCursor = true;
        m_hOwnCursor = LoadCursorW(nullptr, IDC_CROSS);
    }
};

} // namespace

TEST_F(WorldViewMessages, TheViewSetsACursorOfItsOwn)
{
    const CCrossView view(m_pParent.get(), m_atoms);
    SetCursor(nullptr);
    EXPECT_EQ(SendMessageW(view.GetWindowHandle(), WM_SETCURSOR, 0, MAKELPARAM(HTCLIENT, WM_MOUSEMOVE)), 1);
    EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_CROSS));
}

TEST_F(WorldViewMessages, TheSystemAnswersAllOtherMessages)
{
    constexpr wchar_t c_sText[] = L"some text";
    EXPECT_EQ(Send(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(c_sText)), TRUE);
    wchar_t sRead[32]{};
    Send(WM_GETTEXT, 32, reinterpret_cast<LPARAM>(sRead));
    EXPECT_STREQ(sRead, c_sText);
    Send(WM_LBUTTONDOWN, 0, MAKELPARAM(7, 11));
    Send(WM_USER + 2);
    EXPECT_TRUE(m_pParent->GetReceived().empty());
    EXPECT_TRUE(IsWindow(GetViewHandle()));
}

// In a mirrored view the x axis points to the left; its parent is not mirrored.
TEST_F(WorldViewMessages, AClickInAMirroredViewIsMappedToTheSamePointOfTheParent)
{
    m_pView.reset();
    Open({500, 400}, 300, 200, EnumPicDrawMode::Tiled, 1);
    m_pParent->ForgetReceived();
    POINT pt{7, 11};
    MapWindowPoints(GetViewHandle(), m_pParent->GetWindowHandle(), &pt, 1);
    Send(WM_LBUTTONUP, 0, MAKELPARAM(7, 11));
    EXPECT_EQ(GetPoint(GetOnly().lParam).x, pt.x);
    EXPECT_EQ(GetPoint(GetOnly().lParam).y, pt.y);
    EXPECT_GT(pt.x, c_iViewLeft + 200);
}
