#include "app/LayoutRules.h"
#include "tests/windows/CRunningApplication.h"
#include "tests/windows/MessageBoxProbe.h"

#include <commctrl.h>
#include <gtest/gtest.h>

// The main window's response to single messages.

namespace
{
constexpr LRESULT c_iHandled = 1;
constexpr LPARAM c_iKeyReleased = static_cast<LPARAM>(0xC0000001);

void SetSmallWorld(const CRunningApplication& application)
{
    application.SetControlText(L"Tot_atoms", L"5");
}

bool IsFullScreen(const CRunningApplication& application)
{
    bool bFullScreen = false;
    application.Do([&](CKinetarium& inside) { bFullScreen = CKinetariumProbe::IsFullScreen(inside); });
    return bFullScreen;
}

bool HasWorker(const CRunningApplication& application)
{
    bool bWorker = false;
    application.Do([&](CKinetarium& inside) { bWorker = CKinetariumProbe::HasWorker(inside); });
    return bWorker;
}

HWND GetView(const CRunningApplication& application)
{
    HWND hView = nullptr;
    application.Do([&](CKinetarium& inside) { hView = CKinetariumProbe::GetView(inside); });
    return hView;
}

// The view's client rectangle in the main window's client coordinates.
RECT GetViewRect(const CRunningApplication& application)
{
    const HWND hView = GetView(application);
    RECT rc{};
    GetClientRect(hView, &rc);
    MapWindowPoints(hView, application.GetMain(), reinterpret_cast<POINT*>(&rc), 2);
    return rc;
}

std::wstring GetStatusPart(const CRunningApplication& application, int iPart)
{
    std::wstring sText(256, L'\0');
    application.Do([&](CKinetarium& inside) {
        const LRESULT iLength = SendMessageW(CKinetariumProbe::GetStatusBar(inside), SB_GETTEXTW,
                                             static_cast<WPARAM>(iPart), reinterpret_cast<LPARAM>(sText.data()));
        sText.resize(LOWORD(iLength));
    });
    return sText;
}

// A world that is smaller than its area, so that clicks just outside the view still hit the main window.
constexpr int c_iWorldLength = 200;

void SetSquareWorld(const CRunningApplication& application)
{
    SetSmallWorld(application);
    application.SetControlText(L"Width", L"200");
    application.SetControlText(L"Height", L"200");
    application.Do([](CKinetarium& inside) {
        CKinetariumProbe::Start(inside);
        CKinetariumProbe::Stop(inside);
    });
}
} // namespace

TEST(MainWindow, F11TogglesFullScreenInBothDirections)
{
    const CRunningApplication application;
    SetSmallWorld(application);
    SendMessageW(application.GetMain(), WM_KEYUP, VK_F11, c_iKeyReleased);
    EXPECT_TRUE(IsFullScreen(application));
    SendMessageW(application.GetMain(), WM_KEYUP, VK_F11, c_iKeyReleased);
    EXPECT_FALSE(IsFullScreen(application));
}

TEST(MainWindow, EscapeOnlyLeavesFullScreen)
{
    const CRunningApplication application;
    SetSmallWorld(application);
    SendMessageW(application.GetMain(), WM_KEYUP, VK_ESCAPE, c_iKeyReleased);
    EXPECT_FALSE(IsFullScreen(application));
    EXPECT_FALSE(HasWorker(application));

    SendMessageW(application.GetMain(), WM_KEYUP, VK_F11, c_iKeyReleased);
    ASSERT_TRUE(IsFullScreen(application));
    SendMessageW(application.GetMain(), WM_KEYUP, VK_ESCAPE, c_iKeyReleased);
    EXPECT_FALSE(IsFullScreen(application));
}

TEST(MainWindow, MaximisingEntersFullScreenAndRestoringLeavesIt)
{
    const CRunningApplication application;
    SetSmallWorld(application);
    SendMessageW(application.GetMain(), WM_SYSCOMMAND, SC_RESTORE, 0);
    EXPECT_FALSE(IsFullScreen(application));

    // The system uses the lowest four bits of a command itself.
    SendMessageW(application.GetMain(), WM_SYSCOMMAND, SC_MAXIMIZE | 2, 0);
    EXPECT_TRUE(IsFullScreen(application));
    SendMessageW(application.GetMain(), WM_SYSCOMMAND, SC_MAXIMIZE, 0);
    EXPECT_TRUE(IsFullScreen(application));
    SendMessageW(application.GetMain(), WM_SYSCOMMAND, SC_RESTORE, 0);
    EXPECT_FALSE(IsFullScreen(application));
}

TEST(MainWindow, AMinimisedWindowCanBeRestored)
{
    const CRunningApplication application;
    SendMessageW(application.GetMain(), WM_SYSCOMMAND, SC_MINIMIZE, 0);
    ASSERT_TRUE(IsIconic(application.GetMain()));
    SendMessageW(application.GetMain(), WM_SYSCOMMAND, SC_RESTORE, 0);
    EXPECT_FALSE(IsIconic(application.GetMain()));
    EXPECT_FALSE(IsFullScreen(application));
}

TEST(MainWindow, ARightClickTogglesFullScreen)
{
    const CRunningApplication application;
    SetSmallWorld(application);
    SendMessageW(application.GetMain(), WM_RBUTTONUP, 0, MAKELPARAM(1, 1));
    EXPECT_TRUE(IsFullScreen(application));
    SendMessageW(application.GetMain(), WM_RBUTTONUP, 0, MAKELPARAM(1, 1));
    EXPECT_FALSE(IsFullScreen(application));
}

TEST(MainWindow, AClickOnTheViewsRightAndBottomEdgesCountsAsInside)
{
    const CRunningApplication application;
    SetSquareWorld(application);
    const RECT rc = GetViewRect(application);
    ASSERT_EQ(rc.right - rc.left, c_iWorldLength);

    SendMessageW(application.GetMain(), WM_LBUTTONUP, 0, MAKELPARAM(rc.right, rc.bottom));
    EXPECT_TRUE(HasWorker(application));
    application.Do([](CKinetarium& inside) { CKinetariumProbe::Stop(inside); });

    for (const POINT& outside : {POINT{rc.right + 1, rc.top}, POINT{rc.left, rc.bottom + 1}, POINT{rc.left - 1, rc.top},
                                 POINT{rc.left, rc.top - 1}})
    {
        SendMessageW(application.GetMain(), WM_LBUTTONUP, 0, MAKELPARAM(outside.x, outside.y));
        EXPECT_FALSE(HasWorker(application)) << outside.x << ", " << outside.y;
    }
}

TEST(MainWindow, CannotBeDraggedBelowItsMinimumSize)
{
    const CRunningApplication application;
    MINMAXINFO info{};
    EXPECT_EQ(SendMessageW(application.GetMain(), WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&info)), 0);
    EXPECT_EQ(info.ptMinTrackSize.x, Layout::c_iMinimumWindowLength);
    EXPECT_EQ(info.ptMinTrackSize.y, Layout::c_iMinimumWindowLength);
}

TEST(MainWindow, ErasesItsBackgroundItself)
{
    const CRunningApplication application;
    EXPECT_EQ(SendMessageW(application.GetMain(), WM_ERASEBKGND, 0, 0), c_iHandled);
}

TEST(MainWindow, TheClockStandsInTheStatusBar)
{
    const CRunningApplication application;
    SendMessageW(application.GetMain(), WM_TIMER, 1, 0);
    EXPECT_FALSE(GetStatusPart(application, 1).empty());
    EXPECT_FALSE(GetStatusPart(application, 2).empty());
}

TEST(MainWindow, AControlUnderThePointerIsDescribedInTheStatusBar)
{
    const CRunningApplication application;
    const POINT anywhere{0, 0};
    const HWND hWidth = application.FindControl(L"Width");
    application.Do([&](CKinetarium& inside) { CKinetariumProbe::Describe(inside, hWidth, anywhere); });
    EXPECT_EQ(GetStatusPart(application, 0), L"The width of the world in pixels");
}

TEST(MainWindow, ThePruneTimerExistsOnlyWithADebugLog)
{
    {
        const CRunningApplication application;
        EXPECT_FALSE(KillTimer(application.GetMain(), 2));
    }
    std::wstring sLog;
    const CRunningApplication application(false, &sLog);
    bool bKilled = false;
    application.Do([&](CKinetarium&) { bKilled = KillTimer(application.GetMain(), 2) != FALSE; });
    EXPECT_TRUE(bKilled);
}

TEST(MainWindow, ALogIsPrunedOnlyAboveThreeQuartersOfItsCapacity)
{
    std::wstring sLog;
    sLog.reserve(4000);
    const CRunningApplication application(false, &sLog);
    application.Do([&](CKinetarium&) {
        const std::size_t limit = sLog.capacity() * 3 / 4;
        sLog.assign(limit, L'a');
        SendMessageW(application.GetMain(), WM_TIMER, 2, 0);
        EXPECT_EQ(sLog.size(), limit);

        sLog += L'z';
        SendMessageW(application.GetMain(), WM_TIMER, 2, 0);
        EXPECT_EQ(sLog.size(), sLog.capacity() / 2);
        EXPECT_EQ(sLog.back(), L'z');
    });
}

TEST(MainWindow, MessagesBeforeItHasAnObjectGetTheDefault)
{
    const CRunningApplication application;
    HWND hLoose = nullptr;
    application.Do([&](CKinetarium&) {
        hLoose = CreateWindowExW(0, L"CKinetarium", L"loose", WS_OVERLAPPED, 0, 0, 10, 10, nullptr, nullptr,
                                 GetModuleHandleW(nullptr), nullptr);
        EXPECT_NE(hLoose, nullptr);
        EXPECT_EQ(GetText(hLoose), L"loose");
        DestroyWindow(hLoose);
    });
    EXPECT_TRUE(application.IsRunning());
}

TEST(MainWindow, ACancelledColourDialogChangesNothing)
{
    const CRunningApplication application;
    const HWND hButton = application.FindControl(L"Colour_1");
    PostMessageW(hButton, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    PostMessageW(hButton, WM_LBUTTONUP, 0, MAKELPARAM(5, 5));

    HWND hDialog = nullptr;
    ASSERT_TRUE(CRunningApplication::Poll([&] { return (hDialog = FindPopup(application.GetMain())) != nullptr; }));
    PostMessageW(hDialog, WM_COMMAND, IDCANCEL, 0);
    ASSERT_TRUE(CRunningApplication::Poll([&] { return !IsWindow(hDialog); }));
    application.Do([](CKinetarium& inside) { EXPECT_EQ(CKinetariumProbe::GetColour(inside, L"Colour_1"), 255u); });
}
