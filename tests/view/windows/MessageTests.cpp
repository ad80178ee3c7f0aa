#include "tests/view/windows/CViewTest.h"

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
        EXPECT_EQ(1U, m_pParent->GetReceived().size());
        return m_pParent->GetReceived().at(0);
    }
};

POINT GetPoint(LPARAM lParam)
{
    return {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
}

} // namespace

TEST_F(WorldViewMessages, AClickIsSeenByTheParentInItsOwnCoordinates)
{
    EXPECT_EQ(CTestParent::c_iAnswer, Send(WM_LBUTTONUP, MK_CONTROL, MAKELPARAM(7, 11)));
    EXPECT_EQ(static_cast<UINT>(WM_LBUTTONUP), GetOnly().uMessage);
    EXPECT_EQ(static_cast<WPARAM>(MK_CONTROL), GetOnly().wParam);
    EXPECT_EQ(c_iViewLeft + 7, GetPoint(GetOnly().lParam).x);
    EXPECT_EQ(c_iViewTop + 11, GetPoint(GetOnly().lParam).y);
}

TEST_F(WorldViewMessages, AClickLeftOfTheViewAndAboveItKeepsItsSign)
{
    Send(WM_LBUTTONUP, 0, MAKELPARAM(-50, -60));
    EXPECT_EQ(c_iViewLeft - 50, GetPoint(GetOnly().lParam).x);
    EXPECT_EQ(c_iViewTop - 60, GetPoint(GetOnly().lParam).y);
}

TEST_F(WorldViewMessages, ALeftClickTakesTheFocusAndARightClickDoesNot)
{
    SetFocus(m_pParent->GetWindowHandle());
    EXPECT_EQ(CTestParent::c_iAnswer, Send(WM_RBUTTONUP, MK_SHIFT, MAKELPARAM(7, 11)));
    EXPECT_NE(GetViewHandle(), GetFocus());
    EXPECT_EQ(static_cast<UINT>(WM_RBUTTONUP), GetOnly().uMessage);
    EXPECT_EQ(static_cast<WPARAM>(MK_SHIFT), GetOnly().wParam);
    EXPECT_EQ(c_iViewLeft + 7, GetPoint(GetOnly().lParam).x);
    EXPECT_EQ(c_iViewTop + 11, GetPoint(GetOnly().lParam).y);
    Send(WM_LBUTTONUP, 0, MAKELPARAM(7, 11));
    EXPECT_EQ(GetViewHandle(), GetFocus());
}

TEST_F(WorldViewMessages, AKeyIsForwardedUnchangedWhenItIsReleased)
{
    constexpr LPARAM c_lFlags = 0x00570001; // scan code and repeat count of F11
    EXPECT_EQ(CTestParent::c_iAnswer, Send(WM_KEYUP, VK_F11, c_lFlags));
    EXPECT_EQ(static_cast<UINT>(WM_KEYUP), GetOnly().uMessage);
    EXPECT_EQ(static_cast<WPARAM>(VK_F11), GetOnly().wParam);
    EXPECT_EQ(c_lFlags, GetOnly().lParam);
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
        EXPECT_EQ(CTestParent::c_iAnswer, Send(WM_NOTIFY, 5, reinterpret_cast<LPARAM>(&header)));
        EXPECT_EQ(static_cast<UINT>(WM_NOTIFY), GetOnly().uMessage);
        EXPECT_EQ(5U, GetOnly().wParam);
        EXPECT_EQ(reinterpret_cast<LPARAM>(&header), GetOnly().lParam);
    }
}

TEST_F(WorldViewMessages, OtherNotificationsAreNot)
{
    for (const UINT uCode : {0x200U, 0x203U, 0x206U, static_cast<UINT>(NM_CLICK), static_cast<UINT>(NM_RDBLCLK), 0U})
    {
        NMHDR header{GetViewHandle(), 5, uCode};
        EXPECT_EQ(0, Send(WM_NOTIFY, 5, reinterpret_cast<LPARAM>(&header)));
    }
    EXPECT_EQ(0, Send(WM_NOTIFY, 5, 0));
    EXPECT_TRUE(m_pParent->GetReceived().empty());
}

TEST_F(WorldViewMessages, ErasingTheBackgroundDrawsOneFrameAndLeavesNothingToTheSystem)
{
    Scatter(3, 5);
    ASSERT_TRUE(Start_Speed());
    const int iFrames = GetDirect2DSpy().iBeginDraw;
    EXPECT_EQ(1, Send(WM_ERASEBKGND));
    EXPECT_EQ(iFrames + 1, GetDirect2DSpy().iBeginDraw);
    EXPECT_EQ(iFrames + 1, GetDirect2DSpy().iEndDraw);
}

TEST_F(WorldViewMessages, AChangeOfSizePlacesTheWorldAndDrawsAFrame)
{
    Scatter(3, 5);
    ASSERT_TRUE(Start_Speed());
    const int iFrames = GetDirect2DSpy().iBeginDraw;
    MoveView(0, 0, 700, 600);
    EXPECT_LT(iFrames, GetDirect2DSpy().iBeginDraw);
    EXPECT_EQ((CRect{100, 100, 600, 500}), m_pView->GetWorldRect());
    EXPECT_EQ(0, Send(WM_SIZE));
}

// The view has no cursor of its own by default: the system sets the one of the class.
TEST_F(WorldViewMessages, TheCursorIsThatOfTheClass)
{
    SetCursor(nullptr);
    Send(WM_SETCURSOR, reinterpret_cast<WPARAM>(GetViewHandle()), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    EXPECT_EQ(m_pParent->GetCursor(false), GetCursor());
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

TEST_F(WorldViewMessages, ACursorOfItsOwnIsSetByTheViewItself)
{
    const CCrossView view(m_pParent.get(), m_atoms);
    SetCursor(nullptr);
    EXPECT_EQ(1, SendMessageW(view.GetWindowHandle(), WM_SETCURSOR, 0, MAKELPARAM(HTCLIENT, WM_MOUSEMOVE)));
    EXPECT_EQ(LoadCursorW(nullptr, IDC_CROSS), GetCursor());
}

TEST_F(WorldViewMessages, EverythingElseIsLeftToTheSystem)
{
    constexpr wchar_t c_sText[] = L"some text";
    EXPECT_EQ(TRUE, Send(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(c_sText)));
    wchar_t sRead[32]{};
    Send(WM_GETTEXT, 32, reinterpret_cast<LPARAM>(sRead));
    EXPECT_STREQ(c_sText, sRead);
    Send(WM_LBUTTONDOWN, 0, MAKELPARAM(7, 11));
    Send(WM_USER + 2);
    EXPECT_TRUE(m_pParent->GetReceived().empty());
    EXPECT_TRUE(IsWindow(GetViewHandle()));
}

// In a mirrored view the x axis runs to the left; its parent is not mirrored.
TEST_F(WorldViewMessages, AClickInAMirroredViewIsMappedToTheSameSpotOfTheParent)
{
    m_pView.reset();
    Open({500, 400}, 300, 200, EnumPicDrawMode::Tiled, 1);
    m_pParent->ForgetReceived();
    POINT pt{7, 11};
    MapWindowPoints(GetViewHandle(), m_pParent->GetWindowHandle(), &pt, 1);
    Send(WM_LBUTTONUP, 0, MAKELPARAM(7, 11));
    EXPECT_EQ(pt.x, GetPoint(GetOnly().lParam).x);
    EXPECT_EQ(pt.y, GetPoint(GetOnly().lParam).y);
    EXPECT_GT(pt.x, c_iViewLeft + 200);
}
