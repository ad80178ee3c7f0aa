#include "app/CKinetarium.h"
#include "tests/windows/CRunningApplication.h"

#include <gtest/gtest.h>

// Tests the rows of the main window's message table that no other test reaches, and the window's behaviour when a
// system service is missing.

namespace
{
constexpr UINT c_uClicked = 0x202;
constexpr UINT c_uClickedAgain = 0x203;
constexpr UINT c_uNoClick = 0x204;
constexpr UINT_PTR c_uNoTimer = 3;
constexpr LRESULT c_iHandled = 1;

LRESULT Notify(const CRunningApplication& application, HWND hFrom, UINT uCode)
{
    LRESULT iResult = 0;
    application.Do([&](CKinetarium&) {
        NMHDR header{hFrom, 0, uCode};
        iResult = SendMessageW(application.GetMain(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header));
    });
    return iResult;
}

HWND GetStartButton(const CRunningApplication& application)
{
    HWND hButton = nullptr;
    application.Do([&](CKinetarium& inside) { hButton = CKinetariumProbe::GetStartButton(inside); });
    return hButton;
}
} // namespace

TEST(MessageRows, BothNotificationsOfTheButtonCountAsClicks)
{
    const CRunningApplication application;
    application.SetControlText(L"Tot_atoms", L"5");
    const HWND hButton = GetStartButton(application);
    Notify(application, hButton, c_uNoClick);
    EXPECT_TRUE(application.WaitForWorker(false));
    Notify(application, hButton, c_uClickedAgain);
    EXPECT_TRUE(application.WaitForWorker(true));
    application.Do([&](CKinetarium&) { EXPECT_EQ(GetFocus(), application.GetMain()); });
    Notify(application, hButton, c_uClicked);
    EXPECT_TRUE(application.WaitForWorker(false));
}

TEST(MessageRows, AClickFromAnUnknownSenderStartsNothing)
{
    const CRunningApplication application;
    EXPECT_EQ(Notify(application, application.GetMain(), c_uClicked), 0);
    EXPECT_TRUE(application.WaitForWorker(false));
}

TEST(MessageRows, UnknownKeysTimersAndCommandsChangeNothing)
{
    const CRunningApplication application;
    const HWND hMain = application.GetMain();
    EXPECT_EQ(SendMessageW(hMain, WM_KEYUP, VK_F12, 0), 0);
    EXPECT_EQ(SendMessageW(hMain, WM_TIMER, c_uNoTimer, 0), 0);
    EXPECT_EQ(SendMessageW(hMain, WM_COMMAND, MAKEWPARAM(0, CBN_SELENDOK), reinterpret_cast<LPARAM>(hMain)), 0);
    EXPECT_TRUE(application.WaitForWorker(false));
    application.Do([](CKinetarium& inside) { EXPECT_FALSE(CKinetariumProbe::IsFullScreen(inside)); });
}

TEST(MessageRows, WhileBusyTheWindowShowsTheWaitCursor)
{
    const CRunningApplication application;
    application.Do([&](CKinetarium& inside) {
        const auto setCursor = [&] {
            return SendMessageW(application.GetMain(), WM_SETCURSOR, reinterpret_cast<WPARAM>(application.GetMain()),
                                MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
        };
        CKinetariumProbe::SetBusy(inside, true);
        EXPECT_EQ(setCursor(), c_iHandled);
        EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_WAIT));
        CKinetariumProbe::SetBusy(inside, false);
        setCursor();
        EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_ARROW));
    });
}

TEST(MessageRows, ANullRectangleChoosesNoMonitor)
{
    std::wstring sLog;
    const CRunningApplication application(false, &sLog);
    application.Do([&](CKinetarium& inside) {
        sLog.clear();
        EXPECT_FALSE(CKinetariumProbe::FitWindowOnMonitor(inside, nullptr));
        EXPECT_EQ(sLog.find(L"monitor"), std::wstring::npos) << "a monitor was chosen";
    });
}

TEST(MessageRows, TheChoiceOfTheMonitorIsLogged)
{
    std::wstring sLog;
    const CRunningApplication application(false, &sLog);
    application.Do([&](CKinetarium& inside) {
        const std::wstring sRight = std::to_wstring(GetSystemMetrics(SM_CXSCREEN));
        const std::wstring sBottom = std::to_wstring(GetSystemMetrics(SM_CYSCREEN));
        for (const wchar_t* sKey : {L"WndLeft", L"WndTop"})
        {
            CRunningApplication::WriteSetting(sKey, L"20");
        }
        for (const wchar_t* sKey : {L"WndRight", L"WndBottom"})
        {
            CRunningApplication::WriteSetting(sKey, L"420");
        }
        sLog.clear();
        RECT rc{};
        EXPECT_TRUE(CKinetariumProbe::FitWindowOnMonitor(inside, &rc));
        EXPECT_NE(sLog.find(L"Best fitting monitor = 0\n"), std::wstring::npos);
        EXPECT_NE(
            sLog.find(L"Monitor 0  = (0,0) - (" + sRight + L"," + sBottom + L")\nApp window = (20,20) - (420,420)\n"),
            std::wstring::npos);
        EXPECT_EQ(sLog.find(L"doesn't fit"), std::wstring::npos);

        CRunningApplication::WriteSetting(L"WndRight", L"100"); // narrower than a window may be
        EXPECT_TRUE(CKinetariumProbe::FitWindowOnMonitor(inside, &rc));
        EXPECT_NE(sLog.find(L"The application window doesn't fit on the monitor. Switching to main display monitor "
                            L"0.\n"),
                  std::wstring::npos);
    });
}

TEST(MessageRows, WithoutTheFinishedEventAStopStillEndsTheWorker)
{
    CRunningApplication application;
    application.SetControlText(L"Tot_atoms", L"5");
    application.Do([](CKinetarium& inside) {
        CKinetariumProbe::LoseFinishedEvent(inside);
        CKinetariumProbe::Start(inside);
        EXPECT_TRUE(CKinetariumProbe::HasWorker(inside));
        CKinetariumProbe::Stop(inside);
        EXPECT_FALSE(CKinetariumProbe::HasWorker(inside));
    });
    EXPECT_TRUE(application.Close());
}

// A minimised window lies far outside every screen, so its position must not be stored.
TEST(MessageRows, TheEndOfTheSessionStoresTheRestoredRectangleOfAMinimisedWindow)
{
    const CRunningApplication application;
    SetWindowPos(application.GetMain(), nullptr, 20, 30, 640, 480, SWP_NOZORDER);
    RECT rcNormal{};
    GetWindowRect(application.GetMain(), &rcNormal);
    ShowWindow(application.GetMain(), SW_MINIMIZE);
    ASSERT_TRUE(IsIconic(application.GetMain()));
    SendMessageW(application.GetMain(), WM_ENDSESSION, TRUE, 0);
    EXPECT_EQ(CRunningApplication::ReadSetting(L"WndLeft"), std::to_wstring(rcNormal.left));
    EXPECT_EQ(CRunningApplication::ReadSetting(L"WndBottom"), std::to_wstring(rcNormal.bottom));
}
