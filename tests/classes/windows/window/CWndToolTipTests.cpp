#include "classes/windows/window/CWndToolTip.h"

#include "tests/classes/windows/CTestMainWindow.h"

#include <commctrl.h>

#include <gtest/gtest.h>

TEST(WndToolTip, OnlyTheLastGivenControlHasATip)
{
    CTestMainWindow window;
    ASSERT_TRUE(window.Create(984, 661));
    window.AddRows();
    CWndToolTip toolTip(0, nullptr, HKEY_LOCAL_MACHINE);
    const HWND hFirst = window.GetPanel().GetCtrlHandle(L"Width", 0);
    const HWND hSecond = window.GetPanel().GetCtrlHandle(L"Height", 0);
    toolTip.ShowToolTip(L"The width", window.GetWindowHandle(), hFirst);
    ASSERT_NE(toolTip.GetWindowHandle(), nullptr);
    EXPECT_EQ(SendMessageW(toolTip.GetWindowHandle(), TTM_GETTOOLCOUNT, 0, 0), 1);
    EXPECT_EQ(toolTip.GetControl(), hFirst);
    toolTip.ShowToolTip(L"The height\nin pixels", window.GetWindowHandle(), hSecond);
    EXPECT_EQ(SendMessageW(toolTip.GetWindowHandle(), TTM_GETTOOLCOUNT, 0, 0), 1);

    wchar_t sText[128]{};
    TTTOOLINFOW tool{};
    tool.cbSize = sizeof(tool);
    tool.hwnd = window.GetWindowHandle();
    tool.uId = reinterpret_cast<UINT_PTR>(hSecond);
    tool.lpszText = sText;
    SendMessageW(toolTip.GetWindowHandle(), TTM_GETTEXTW, 128, reinterpret_cast<LPARAM>(&tool));
    EXPECT_STREQ(sText, L"The height\nin pixels");

    toolTip.ShowToolTip(CWString(), window.GetWindowHandle(), hSecond);
    EXPECT_EQ(SendMessageW(toolTip.GetWindowHandle(), TTM_GETTOOLCOUNT, 0, 0), 0);
    toolTip.ShowToolTip(L"nobody", window.GetWindowHandle(), nullptr);
    EXPECT_EQ(toolTip.GetControl(), nullptr);
}
