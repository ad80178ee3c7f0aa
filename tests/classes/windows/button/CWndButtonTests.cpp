#include "classes/windows/button/CWndButton.h"

#include "classes/core/ColourMath.h"
#include "tests/classes/core/CLibrarySettingsChange.h"
#include "tests/classes/windows/WindowsTestEnvironment.h"

#include <gtest/gtest.h>

#include <array>

namespace
{
class WndButton : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_Main.Create(984, 661));
        ASSERT_TRUE(m_Main.AddButton());
        m_hButton = m_Main.GetStartButton().GetWindowHandle();
        SetFocus(m_hButton);
        m_Main.Pump();
        m_Main.m_notices.clear();
    }

    CTestMainWindow m_Main;
    HWND m_hButton = nullptr;
};
} // namespace

TEST_F(WndButton, AClickNotifiesTheParentOnce)
{
    Click(m_Main, m_hButton);
    ASSERT_EQ(m_Main.m_notices.size(), 1u);
    EXPECT_EQ(m_Main.m_notices[0].uCode, 0x202u);
    EXPECT_EQ(m_Main.m_notices[0].hFrom, m_hButton);
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST(NewWndButton, HasTheFaceOfTheSettings)
{
    CLibrarySettings settings;
    settings.crButtonFace = RGB(1, 2, 3);
    const CLibrarySettingsChange change(settings);
    const CWndButton button;
    EXPECT_EQ(button.GetBackground(), RGB(1, 2, 3));
    EXPECT_EQ(button.GetTextColour(), RGB(255, 255, 255)) << "white on a dark face";
}

TEST_F(WndButton, OnlyTheKeysOfTheSettingsGoToTheMainWindow)
{
    static constexpr std::array<unsigned, 1> c_Keys{VK_F2};
    CLibrarySettings settings;
    settings.mainWindowKeys = c_Keys;
    const CLibrarySettingsChange change(settings);
    PressKey(m_Main, VK_F2);
    PressKey(m_Main, VK_F11);
    EXPECT_EQ(m_Main.m_keysUp, std::vector<WPARAM>{VK_F2});
}

TEST_F(WndButton, SpaceAndEnterPressItOnceEach)
{
    PressKey(m_Main, VK_SPACE);
    EXPECT_EQ(m_Main.m_notices.size(), 1u);
    PressKey(m_Main, VK_RETURN);
    EXPECT_EQ(m_Main.m_notices.size(), 2u);
}

TEST_F(WndButton, AHeldKeyPressesItOnlyOnce)
{
    constexpr LPARAM c_iRepeated = (LPARAM{1} << 30) | 1;
    for (const WPARAM wKey : {WPARAM{VK_RETURN}, WPARAM{VK_SPACE}})
    {
        m_Main.m_notices.clear();
        PostMessageW(m_hButton, WM_KEYDOWN, wKey, 1);
        for (int i = 0; i < 10; ++i)
        {
            PostMessageW(m_hButton, WM_KEYDOWN, wKey, c_iRepeated);
        }
        PostMessageW(m_hButton, WM_KEYUP, wKey, c_iRepeated);
        m_Main.Pump();
        EXPECT_EQ(m_Main.m_notices.size(), 1u) << wKey;
    }
}

TEST_F(WndButton, TheMouseReleasedOutsideDoesNotPressIt)
{
    RECT rc{};
    GetClientRect(m_hButton, &rc);
    for (const POINT& pt : {POINT{-1, 5}, POINT{rc.right, 5}, POINT{5, -1}, POINT{5, rc.bottom}})
    {
        PostMessageW(m_hButton, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
        PostMessageW(m_hButton, WM_LBUTTONUP, 0, MAKELPARAM(pt.x, pt.y));
        m_Main.Pump();
        EXPECT_TRUE(m_Main.m_notices.empty()) << "released at " << pt.x << ", " << pt.y;
        PostMessageW(m_hButton, WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
        m_Main.Pump();
        EXPECT_TRUE(m_Main.m_notices.empty()) << "a release without a press";
    }
}

TEST_F(WndButton, SpaceReleasedAfterTheFocusHasLeftDoesNotPressIt)
{
    PostMessageW(m_hButton, WM_KEYDOWN, VK_SPACE, 1);
    m_Main.Pump();
    SetFocus(m_Main.GetWindowHandle());
    SetFocus(m_hButton);
    PostMessageW(m_hButton, WM_KEYUP, VK_SPACE, 1);
    m_Main.Pump();
    EXPECT_TRUE(m_Main.m_notices.empty());
}

TEST_F(WndButton, ADisabledButtonDoesNotClick)
{
    EnableWindow(m_hButton, FALSE);
    SendMessageW(m_hButton, BM_CLICK, 0, 0);
    m_Main.GetStartButton().Click();
    EXPECT_TRUE(m_Main.m_notices.empty());
    EnableWindow(m_hButton, TRUE);
    SendMessageW(m_hButton, BM_CLICK, 0, 0);
    EXPECT_EQ(m_Main.m_notices.size(), 1u);
}

// A stop disables the button for a moment. The keyboard must work meanwhile, and the focus must return to the button.
TEST_F(WndButton, DisablingItMovesTheFocusToTheMainWindowAndEnablingItReturnsTheFocus)
{
    EnableWindow(m_hButton, FALSE);
    EXPECT_EQ(GetFocus(), m_Main.GetWindowHandle());
    PressKey(m_Main, VK_F11);
    EXPECT_EQ(m_Main.m_keysUp, std::vector<WPARAM>{VK_F11});
    EnableWindow(m_hButton, TRUE);
    EXPECT_EQ(GetFocus(), m_hButton);
}

TEST_F(WndButton, AFocusThatHasMovedOnIsNotTakenBack)
{
    m_Main.AddRows();
    const HWND hEntry = m_Main.GetPanel().GetCtrlHandle(L"Width", 0);
    EnableWindow(m_hButton, FALSE);
    SetFocus(hEntry);
    EnableWindow(m_hButton, TRUE);
    EXPECT_EQ(GetFocus(), hEntry);
}

TEST_F(WndButton, F11AndEscapeReachTheMainWindowAndOtherKeysDoNot)
{
    PressKey(m_Main, VK_F11);
    PressKey(m_Main, VK_ESCAPE);
    PressKey(m_Main, 'A');
    EXPECT_EQ(m_Main.m_keysUp, (std::vector<WPARAM>{VK_F11, VK_ESCAPE}));
}

TEST_F(WndButton, ItsTextIsTheWindowsText)
{
    EXPECT_EQ(GetText(m_hButton), L"Start");
    m_Main.GetStartButton().SetText(L"Stop");
    EXPECT_EQ(GetText(m_hButton), L"Stop");
    SendMessageW(m_hButton, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"Go"));
    EXPECT_EQ(m_Main.GetStartButton().GetText().Get(), L"Go");
    EXPECT_EQ(m_Main.GetStartButton().GetAccessibleName().Get(), L"Go");
}

TEST_F(WndButton, ItReturnsTheFontThatWasSet)
{
    const HFONT hFont = static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
    SendMessageW(m_hButton, WM_SETFONT, reinterpret_cast<WPARAM>(hFont), TRUE);
    EXPECT_EQ(reinterpret_cast<HFONT>(SendMessageW(m_hButton, WM_GETFONT, 0, 0)), hFont);
}

TEST_F(WndButton, ItShowsItsColourAtOnceAndItsTextInBlackOrWhite)
{
    CWndButton& button = m_Main.GetStartButton();
    SetFocus(m_Main.GetWindowHandle());
    for (const COLORREF cr : {RGB(255, 255, 255), RGB(0, 0, 0), RGB(0xC8, 0xD8, 0xD0), RGB(90, 0, 120)})
    {
        button.SetBackground(cr, cr, true, true, true);
        EXPECT_EQ(button.GetBackground(), cr);
        EXPECT_EQ(GetShownPixel(m_hButton, 10, 12), cr);
        EXPECT_GE(GetContrast(cr, button.GetTextColour()), 4.5);
    }
}

TEST_F(WndButton, TheFocusIsVisible)
{
    const COLORREF crWith = GetShownPixel(m_hButton, 60, 0);
    SetFocus(m_Main.GetWindowHandle());
    UpdateWindow(m_hButton);
    EXPECT_NE(GetShownPixel(m_hButton, 60, 0), crWith);
}

// An exception in the parent must not pass through the system's stack frames: the click completes.
TEST_F(WndButton, AnExceptionInItsParentDoesNotHarmIt)
{
    m_Main.m_bThrowOnNotify = true;
    EXPECT_NO_THROW(SendMessageW(m_hButton, BM_CLICK, 0, 0));
    EXPECT_NO_THROW(Click(m_Main, m_hButton));
    EXPECT_EQ(m_Main.m_notices.size(), 2u);
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(WndButton, ItCanBeCreatedOnlyOnceAndOnlyWithAParent)
{
    EXPECT_FALSE(m_Main.AddButton());
    CWndButton other;
    EXPECT_FALSE(other.Initialize(GetModuleHandleW(nullptr), nullptr, false, nullptr, L"", nullptr, true, nullptr));
    EXPECT_EQ(other.GetWindowHandle(), nullptr);
    other.SetText(L"x");
    other.Click();
    EXPECT_TRUE(other.GetText().IsEmpty());
}

// Its corners show the main window's texture, aligned with the main window.
TEST_F(WndButton, TheBackdropContinuesSeamlesslyBehindItsCorners)
{
    const RECT rc = CWndCommon::GetBackdropRect(m_hButton, m_Main.GetWindowHandle());
    const SIZE size = m_Main.GetBackdrop()->GetSize();
    EXPECT_EQ(GetShownPixel(m_hButton, 0, 0),
              m_Main.GetBackdrop()->GetPixelColour(-rc.left % size.cx, -rc.top % size.cy));
}
