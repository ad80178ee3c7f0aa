#include "app/LayoutRules.h"
#include "tests/windows/CRunningApplication.h"
#include "tests/windows/MessageBoxProbe.h"

#include <commctrl.h>
#include <gtest/gtest.h>

namespace
{
constexpr LPARAM c_iKeyReleased = static_cast<LPARAM>(0xC0000001);

RECT GetRectInMain(const CRunningApplication& application, HWND hChild)
{
    RECT rc{};
    GetWindowRect(hChild, &rc);
    MapWindowPoints(nullptr, application.GetMain(), reinterpret_cast<POINT*>(&rc), 2);
    return rc;
}

struct CParts
{
    HWND hView = nullptr;
    HWND hPanel = nullptr;
    HWND hButton = nullptr;
    HWND hStatusBar = nullptr;
};

CParts GetParts(const CRunningApplication& application)
{
    CParts parts;
    application.Do([&](CKinetarium& inside) {
        parts = {CKinetariumProbe::GetView(inside), CKinetariumProbe::GetPanel(inside),
                 CKinetariumProbe::GetStartButton(inside), CKinetariumProbe::GetStatusBar(inside)};
    });
    return parts;
}

LONG GetBars(HWND hView)
{
    return GetWindowLongW(hView, GWL_STYLE) & (WS_VSCROLL | WS_HSCROLL);
}

// Starts a world that is larger than the screen.
void StartLargeWorld(const CRunningApplication& application)
{
    application.SetControlText(L"Tot_atoms", L"5");
    application.SetControlText(L"Width", L"3000");
    application.SetControlText(L"Height", L"3000");
    application.Do([](CKinetarium& inside) { CKinetariumProbe::Start(inside); });
}

void PressF11(const CRunningApplication& application)
{
    SendMessageW(application.GetMain(), WM_KEYUP, VK_F11, c_iKeyReleased);
}
} // namespace

TEST(LayoutInTheWindow, EveryPartHasTheRectangleThatTheRulesGiveIt)
{
    const CRunningApplication application;
    const CParts parts = GetParts(application);
    RECT rcClient{};
    GetClientRect(application.GetMain(), &rcClient);
    const CWindowedLayout expected =
        ComputeWindowedLayout({rcClient.right, rcClient.bottom}, {512, 512},
                              {0, GetSystemMetrics(SM_CXVSCROLL), GetSystemMetrics(SM_CYHSCROLL)});

    const auto expectAt = [&](HWND hChild, const CRect& rectangle) {
        const RECT rc = GetRectInMain(application, hChild);
        EXPECT_EQ(rectangle, (CRect{rc.left, rc.top, rc.right, rc.bottom}));
    };
    expectAt(parts.hButton, expected.startButton);
    expectAt(parts.hPanel, expected.settingsPanel);
    expectAt(parts.hView, expected.worldView);

    const RECT rcStatusBar = GetRectInMain(application, parts.hStatusBar);
    EXPECT_EQ(rcStatusBar.left, 0);
    EXPECT_EQ(rcStatusBar.right, rcClient.right);
    EXPECT_EQ(rcStatusBar.bottom, rcClient.bottom);
    EXPECT_GT(rcStatusBar.bottom - rcStatusBar.top, 10);
    EXPECT_EQ(SendMessageW(parts.hStatusBar, SB_GETPARTS, 0, 0), Layout::c_iStatusPartCount);
}

TEST(LayoutInTheWindow, FollowsTheWindowsSize)
{
    const CRunningApplication application;
    const CParts parts = GetParts(application);
    SetWindowPos(application.GetMain(), nullptr, 10, 10, 800, 500, SWP_NOZORDER);
    RECT rcClient{};
    GetClientRect(application.GetMain(), &rcClient);
    EXPECT_EQ(GetRectInMain(application, parts.hButton).left, rcClient.right - 140);
    EXPECT_EQ(GetRectInMain(application, parts.hStatusBar).bottom, rcClient.bottom);
    EXPECT_EQ(GetRectInMain(application, parts.hStatusBar).right, rcClient.right);
}

TEST(LayoutInTheWindow, TheSmallestWindowBreaksNothing)
{
    std::wstring sLog;
    const CRunningApplication application(false, &sLog);
    SetWindowPos(application.GetMain(), nullptr, 10, 10, 1, 1, SWP_NOZORDER);
    RECT rc{};
    GetWindowRect(application.GetMain(), &rc);
    EXPECT_EQ(rc.right - rc.left, 150);
    EXPECT_EQ(rc.bottom - rc.top, 150);
    application.SetControlText(L"Tot_atoms", L"5");
    application.Do([](CKinetarium& inside) { CKinetariumProbe::Start(inside); });
    EXPECT_TRUE(application.WaitForWorker(true));
}

TEST(FullScreen, TheWorldAloneCoversTheWholeMonitor)
{
    const CRunningApplication application;
    application.SetControlText(L"Tot_atoms", L"5");
    const CParts parts = GetParts(application);
    PressF11(application);

    RECT rc{};
    GetWindowRect(application.GetMain(), &rc);
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(application.GetMain(), MONITOR_DEFAULTTOPRIMARY), &monitor);
    EXPECT_TRUE(EqualRect(&rc, &monitor.rcMonitor));

    EXPECT_FALSE(IsWindowVisible(parts.hPanel));
    EXPECT_FALSE(IsWindowVisible(parts.hButton));
    EXPECT_FALSE(IsWindowVisible(parts.hStatusBar));
    RECT rcClient{};
    GetClientRect(application.GetMain(), &rcClient);
    const RECT rcView = GetRectInMain(application, parts.hView);
    EXPECT_TRUE(EqualRect(&rcView, &rcClient));
    EXPECT_EQ(GetWindowLongW(application.GetMain(), GWL_STYLE) & WS_CAPTION, 0);
}

TEST(FullScreen, TheWorldTakesTheScreensSizeAndThePanelKeepsItsOwn)
{
    const CRunningApplication application;
    application.SetControlText(L"Tot_atoms", L"5");
    application.SetControlText(L"Width", L"123");
    PressF11(application);
    EXPECT_TRUE(application.WaitForWorker(true));
    EXPECT_EQ(application.GetControlText(L"Width"), L"123");

    CSize<int> world;
    application.Do([&](CKinetarium& inside) { world = CKinetariumProbe::GetWorldSize(inside); });
    RECT rcClient{};
    GetClientRect(application.GetMain(), &rcClient);
    EXPECT_EQ(world, (CSize<int>{rcClient.right, rcClient.bottom}));
}

TEST(FullScreen, LeavingItRestoresTheLayoutAndRestartsTheSimulation)
{
    const CRunningApplication application;
    application.SetControlText(L"Tot_atoms", L"5");
    RECT rcBefore{};
    GetWindowRect(application.GetMain(), &rcBefore);
    const CParts parts = GetParts(application);

    PressF11(application);
    PressF11(application);

    RECT rcAfter{};
    GetWindowRect(application.GetMain(), &rcAfter);
    EXPECT_TRUE(EqualRect(&rcBefore, &rcAfter));
    EXPECT_TRUE(IsWindowVisible(parts.hPanel));
    EXPECT_TRUE(IsWindowVisible(parts.hButton));
    EXPECT_TRUE(IsWindowVisible(parts.hStatusBar));
    EXPECT_NE(GetWindowLongW(application.GetMain(), GWL_STYLE) & WS_CAPTION, 0);
    EXPECT_TRUE(application.WaitForWorker(true));
    EXPECT_EQ(application.GetControlText(L"Width"), L"512");
}

TEST(FullScreen, AWorldLargerThanTheScreenLosesItsBarsAndGetsThemBack)
{
    const CRunningApplication application;
    StartLargeWorld(application);
    const HWND hView = GetParts(application).hView;
    ASSERT_EQ(GetBars(hView), WS_VSCROLL | WS_HSCROLL);
    PressF11(application);
    EXPECT_EQ(GetBars(hView), 0);
    PressF11(application);
    EXPECT_EQ(GetBars(hView), WS_VSCROLL | WS_HSCROLL);
}

// Without a valid factor no new world starts, and the old one stays in the view.
TEST(FullScreen, AWorldThatStaysForLackOfAFactorHasBarsOutsideFullScreenOnly)
{
    const CRunningApplication application;
    StartLargeWorld(application);
    const HWND hView = GetParts(application).hView;
    application.SetControlText(L"Colour_1_factor", L"x");
    for (const LONG lExpected : {0L, static_cast<LONG>(WS_VSCROLL | WS_HSCROLL)})
    {
        PostMessageW(application.GetMain(), WM_KEYUP, VK_F11, c_iKeyReleased);
        EXPECT_TRUE(CloseMessageBox(WaitForMessageBox(application.GetMain())));
        ASSERT_TRUE(application.WaitForWorker(false));
        EXPECT_EQ(GetBars(hView), lExpected);
    }
}
