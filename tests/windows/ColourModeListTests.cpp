#include "tests/windows/CRunningApplication.h"

#include <gtest/gtest.h>

// The list of colour modes used with keys.

namespace
{
constexpr LRESULT c_iFixed = 0;
constexpr LRESULT c_iSpeed = 1;

// Opens the list of modes and presses the arrow key up and then the other key.
void OpenMoveUpAndPress(const CRunningApplication& application, WPARAM uKey)
{
    const HWND hList = application.FindControl(L"Colour_mode");
    application.Do([hList](CKinetarium&) { SetFocus(hList); });
    SendMessageW(hList, WM_KEYDOWN, VK_F4, 0);
    ASSERT_NE(SendMessageW(hList, CB_GETDROPPEDSTATE, 0, 0), 0);
    SendMessageW(hList, WM_KEYDOWN, VK_UP, 0);
    ASSERT_EQ(SendMessageW(hList, CB_GETCURSEL, 0, 0), c_iFixed);
    SendMessageW(hList, WM_KEYDOWN, uKey, 0);
    ASSERT_EQ(SendMessageW(hList, CB_GETDROPPEDSTATE, 0, 0), 0);
}
} // namespace

TEST(ColourModeList, EscapePutsBackTheModeThatStoodThereWhenTheListOpened)
{
    {
        const CRunningApplication application;
        OpenMoveUpAndPress(application, VK_ESCAPE);
        const HWND hList = application.FindControl(L"Colour_mode");
        EXPECT_EQ(SendMessageW(hList, CB_GETCURSEL, 0, 0), c_iSpeed);
        EXPECT_EQ(application.GetControlText(L"Colour_mode"), L"Speed");
        EXPECT_FALSE(IsWindowEnabled(application.FindControl(L"Colour_2_factor")));
    }
    EXPECT_EQ(CRunningApplication::ReadSetting(L"Atoms_colour_mode"), L"1");
}

TEST(ColourModeList, EnterTakesTheModeAndALaterEscapePutsThatOneBack)
{
    const CRunningApplication application;
    OpenMoveUpAndPress(application, VK_RETURN);
    const HWND hList = application.FindControl(L"Colour_mode");
    EXPECT_EQ(SendMessageW(hList, CB_GETCURSEL, 0, 0), c_iFixed);
    EXPECT_TRUE(IsWindowEnabled(application.FindControl(L"Colour_2_factor")));

    SendMessageW(hList, WM_KEYDOWN, VK_F4, 0);
    SendMessageW(hList, WM_KEYDOWN, VK_DOWN, 0);
    SendMessageW(hList, WM_KEYDOWN, VK_ESCAPE, 0);
    EXPECT_EQ(SendMessageW(hList, CB_GETCURSEL, 0, 0), c_iFixed);
    EXPECT_TRUE(IsWindowEnabled(application.FindControl(L"Colour_2_factor")));
}
