#include "tests/windows/CReplacedImport.h"
#include "tests/windows/CRunningApplication.h"

#include <commctrl.h>
#include <commdlg.h>
#include <gtest/gtest.h>

// Where the keyboard is, and what the status bar shows from the beginning.

namespace
{
// Another window of the same thread comes to the front and goes again, as another program's does.
void SwitchAwayAndBack(HWND hMain)
{
    const HWND hOther = CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 100, 100, nullptr,
                                        nullptr, nullptr, nullptr);
    SetActiveWindow(hOther);
    ASSERT_EQ(GetActiveWindow(), hOther);
    SetActiveWindow(hMain);
    ASSERT_EQ(GetActiveWindow(), hMain);
    DestroyWindow(hOther);
}

// The system's dialog for colours, which leaves its owner active when it ends.
BOOL WINAPI ChooseRed(CHOOSECOLORW* pChoice)
{
    const HWND hDialog = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 100, 100, pChoice->hwndOwner,
                                         nullptr, nullptr, nullptr);
    SetActiveWindow(hDialog);
    EnableWindow(pChoice->hwndOwner, FALSE);
    EnableWindow(pChoice->hwndOwner, TRUE);
    DestroyWindow(hDialog);
    SetFocus(pChoice->hwndOwner);
    pChoice->rgbResult = RGB(255, 0, 0);
    return TRUE;
}

UINT_PTR WINAPI NeverTick(HWND, UINT_PTR uTimer, UINT, TIMERPROC)
{
    return uTimer;
}

std::wstring GetStatusPart(const CRunningApplication& application, int iPart)
{
    wchar_t sText[128] = L"";
    application.Do([&](CKinetarium& inside) {
        SendMessageW(CKinetariumProbe::GetStatusBar(inside), SB_GETTEXTW, static_cast<WPARAM>(iPart),
                     reinterpret_cast<LPARAM>(sText));
    });
    return sText;
}
} // namespace

TEST(Focus, IsWhereItWasAfterAnotherProgramWasInFront)
{
    const CRunningApplication application;
    const HWND hEntry = application.FindControl(L"Height");
    application.Do([&](CKinetarium&) {
        SetActiveWindow(application.GetMain());
        SetFocus(hEntry);
        SwitchAwayAndBack(application.GetMain());
        EXPECT_EQ(GetFocus(), hEntry);
    });
}

TEST(Focus, StaysOnTheMainWindowIfItWasThere)
{
    const CRunningApplication application;
    application.Do([&](CKinetarium&) {
        SetActiveWindow(application.GetMain());
        SetFocus(application.FindControl(L"Height"));
        SwitchAwayAndBack(application.GetMain());
        SetFocus(application.GetMain());
        EXPECT_EQ(GetFocus(), application.GetMain());
        SwitchAwayAndBack(application.GetMain());
        EXPECT_EQ(GetFocus(), application.GetMain());
    });
}

TEST(Focus, IsOnTheMainWindowIfTheControlHasGoneMeanwhile)
{
    const CRunningApplication application;
    application.Do([&](CKinetarium& inside) {
        SetActiveWindow(application.GetMain());
        SetFocus(application.FindControl(L"Height"));
        const HWND hOther = CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 100, 100,
                                            nullptr, nullptr, nullptr, nullptr);
        SetActiveWindow(hOther);
        ShowWindow(CKinetariumProbe::GetPanel(inside), SW_HIDE);
        SetActiveWindow(application.GetMain());
        EXPECT_EQ(GetFocus(), application.GetMain());
        ShowWindow(CKinetariumProbe::GetPanel(inside), SW_SHOW);
        DestroyWindow(hOther);
    });
}

TEST(Focus, IsOnTheButtonAfterItsColourDialog)
{
    const CRunningApplication application;
    const CReplacedImport choosing("ChooseColorW", ChooseRed);
    const HWND hButton = application.FindControl(L"Colour_3");
    const HWND hEntry = application.FindControl(L"Height");
    application.Do([&](CKinetarium& inside) {
        SetActiveWindow(application.GetMain());
        SetFocus(hEntry);
        SendMessageW(hButton, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
        SendMessageW(hButton, WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
        EXPECT_EQ(CKinetariumProbe::GetColour(inside, L"Colour_3"), RGB(255, 0, 0));
        EXPECT_EQ(GetFocus(), hButton);
    });
}

TEST(StatusBar, ShowsDateAndClockBeforeTheFirstTick)
{
    const CReplacedImport noTimer("SetTimer", NeverTick);
    const CRunningApplication application;
    EXPECT_NE(GetStatusPart(application, 1), L"");
    EXPECT_NE(GetStatusPart(application, 2), L"");
}
