#include "app/CKinetarium.h"
#include "tests/windows/CHeldWorker.h"
#include "tests/windows/CRunningApplication.h"
#include "tests/windows/MessageBoxProbe.h"

#include <gtest/gtest.h>

// A stop dispatches messages while it waits, because the worker may be waiting for this thread to draw a frame. These
// tests inject a message into that wait and into every other message loop.

namespace
{
constexpr LPARAM c_iKeyReleased = static_cast<LPARAM>(0xC0000001);

void StartSmallWorld(const CRunningApplication& application)
{
    application.SetControlText(L"Tot_atoms", L"6");
    application.Do([](CKinetarium& inside) { CKinetariumProbe::Start(inside); });
}

// Queued on the application's thread just before the stop, so that the stop's own pump dispatches it. If the worker
// happens to be between two frames, the next pump does. The outcome must be the same either way.
void StopWith(const CRunningApplication& application, UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    application.Do([&](CKinetarium& inside) {
        PostMessageW(application.GetMain(), uMessage, wParam, lParam);
        CKinetariumProbe::Stop(inside);
    });
}

constexpr int c_iRounds = 10;
} // namespace

TEST(NestedMessages, ACloseDuringAStopClosesTheWindow)
{
    for (int round = 0; round < c_iRounds; ++round)
    {
        CRunningApplication application;
        StartSmallWorld(application);
        StopWith(application, WM_CLOSE, 0, 0);
        EXPECT_TRUE(CRunningApplication::Poll([&] { return !application.IsRunning(); })) << "the close was lost";
    }
}

TEST(NestedMessages, AClickDuringAStopStartsFromThatPoint)
{
    const CRunningApplication application;
    for (int round = 0; round < c_iRounds; ++round)
    {
        StartSmallWorld(application);
        StopWith(application, WM_LBUTTONUP, 0, MAKELPARAM(300, 300));
        EXPECT_TRUE(application.WaitForWorker(true));
        application.Do([](CKinetarium& inside) { CKinetariumProbe::Stop(inside); });
    }
}

TEST(NestedMessages, FullScreenDuringAStopTakesEffectAfterIt)
{
    const CRunningApplication application;
    StartSmallWorld(application);
    StopWith(application, WM_KEYUP, VK_F11, c_iKeyReleased);
    EXPECT_TRUE(application.WaitUntil([](CKinetarium& inside) {
        return CKinetariumProbe::IsFullScreen(inside) && CKinetariumProbe::HasWorker(inside);
    }));
    StopWith(application, WM_RBUTTONUP, 0, MAKELPARAM(1, 1));
    EXPECT_TRUE(application.WaitUntil([](CKinetarium& inside) {
        return !CKinetariumProbe::IsFullScreen(inside) && CKinetariumProbe::HasWorker(inside);
    }));
}

TEST(NestedMessages, TheEndOfTheSessionDuringAStopSavesTheSettings)
{
    const CRunningApplication application;
    StartSmallWorld(application);
    application.SetControlText(L"Width", L"234");
    StopWith(application, WM_ENDSESSION, TRUE, 0);
    EXPECT_TRUE(CRunningApplication::Poll([] { return CRunningApplication::ReadSetting(L"World_width") == L"234"; }));
    EXPECT_TRUE(application.WaitForWorker(false));
}

TEST(NestedMessages, AQuitDuringAStopEndsTheRun)
{
    CRunningApplication application;
    StartSmallWorld(application);
    application.Do([](CKinetarium& inside) {
        PostQuitMessage(0);
        CKinetariumProbe::Stop(inside);
    });
    EXPECT_TRUE(application.Close());
}

// The worker waits for an answer to its frame, and the pump that would give it has seen the quit already.
TEST(NestedMessages, AStopAfterAQuitAnswersTheWorkersLastFrame)
{
    const CHeldWorker worker;
    CRunningApplication application;
    StartSmallWorld(application);
    ASSERT_TRUE(worker.Wait());
    application.Do([&](CKinetarium& inside) {
        PostQuitMessage(0);
        EXPECT_FALSE(inside.OperateMessagePump(nullptr));
        worker.Open();
        CKinetariumProbe::Stop(inside);
    });
    EXPECT_EQ(worker.GetUnanswered(), 0);
    EXPECT_TRUE(application.Close());
}

TEST(NestedMessages, ADestroyedWindowEndsTheRunAndItsWorker)
{
    CRunningApplication application;
    StartSmallWorld(application);
    application.Do([&](CKinetarium&) { DestroyWindow(application.GetMain()); });
    EXPECT_TRUE(application.Close());
}

TEST(NestedMessages, ACloseWhileAMessageBoxIsOpenEndsTheRun)
{
    CRunningApplication application;
    application.SetControlText(L"Colour_1_factor", L"x");
    application.PressButton();
    ASSERT_NE(WaitForMessageBox(application.GetMain()).hWnd, nullptr);
    EXPECT_TRUE(application.Close());
}

TEST(NestedMessages, AClickBehindAMessageBoxOpensNoSecondOne)
{
    const CRunningApplication application;
    application.SetControlText(L"Colour_1_factor", L"x");
    application.PressButton();
    const CShownMessage message = WaitForMessageBox(application.GetMain());
    ASSERT_NE(message.hWnd, nullptr);
    SendMessageW(application.GetMain(), WM_LBUTTONUP, 0, MAKELPARAM(300, 300));
    EXPECT_EQ(FindPopup(application.GetMain()), message.hWnd);
    EXPECT_TRUE(CloseMessageBox(message));
    // One factor is invalid and one is missing; only the first error is reported.
    EXPECT_TRUE(application.WaitForWorker(false));
    EXPECT_EQ(FindPopup(application.GetMain()), nullptr);
}

TEST(NestedMessages, TheSimulationRunsOnBehindAColourDialog)
{
    CRunningApplication application;
    StartSmallWorld(application);
    const HWND hButton = application.FindControl(L"Colour_2");
    PostMessageW(hButton, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    PostMessageW(hButton, WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
    ASSERT_TRUE(CRunningApplication::Poll([&] { return FindPopup(application.GetMain()) != nullptr; }));

    // A click restarts, full screen toggles, and a final close ends everything, including dialog and worker.
    SendMessageW(application.GetMain(), WM_LBUTTONUP, 0, MAKELPARAM(300, 300));
    EXPECT_TRUE(application.WaitForWorker(true));
    SendMessageW(application.GetMain(), WM_KEYUP, VK_F11, c_iKeyReleased);
    EXPECT_TRUE(application.WaitUntil([](CKinetarium& inside) { return CKinetariumProbe::IsFullScreen(inside); }));
    EXPECT_TRUE(application.Close());
}
