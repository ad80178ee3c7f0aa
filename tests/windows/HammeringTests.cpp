#include "tests/windows/CRunningApplication.h"

#include <algorithm>
#include <cstdint>
#include <gtest/gtest.h>

// A user who presses faster than a world can change. A change dispatches the messages that wait, and the next press is
// one of them: were it obeyed there and then, each would run inside the one before until the stack is used up.

namespace
{
constexpr LPARAM c_iKeyReleased = static_cast<LPARAM>(0xC0000001);
constexpr int c_iPresses = 201; // an odd number: the last one counts
// Bytes of stack; a press inside another takes two to three thousand.
constexpr std::uintptr_t c_uDeepest = std::uintptr_t{64} * 1024;

std::uintptr_t s_uShallowest = 0;
std::uintptr_t s_uDeepest = 0;

// Called for each message that leaves the queue: notes where the stack stands.
LRESULT CALLBACK NoteStack(int iCode, WPARAM wParam, LPARAM lParam)
{
    // A number, which nobody takes for a place to read from.
    const auto uHere = reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
    s_uShallowest = std::max(s_uShallowest, uHere);
    s_uDeepest = std::min(s_uDeepest, uHere);
    return CallNextHookEx(nullptr, iCode, wParam, lParam);
}

// Posts the message many times at once, and returns how much of the stack its handling took.
std::uintptr_t Hammer(const CRunningApplication& application, UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    HHOOK hHook = nullptr;
    application.Do([&](CKinetarium&) {
        s_uShallowest = 0;
        s_uDeepest = UINTPTR_MAX;
        hHook = SetWindowsHookExW(WH_GETMESSAGE, NoteStack, nullptr, GetCurrentThreadId());
        for (int iPress = 0; iPress < c_iPresses; ++iPress)
        {
            PostMessageW(application.GetMain(), uMessage, wParam, lParam);
        }
    });
    // What is asked for now comes after all of them.
    EXPECT_TRUE(application.WaitUntil([](CKinetarium& inside) { return CKinetariumProbe::HasWorker(inside); }));
    application.Do([&](CKinetarium&) { UnhookWindowsHookEx(hHook); });
    return s_uShallowest - s_uDeepest;
}
} // namespace

TEST(Hammering, OnTheFullScreenKeyNestsNothingAndTheLastPressCounts)
{
    const CRunningApplication application;
    application.SetControlText(L"Tot_atoms", L"5");
    EXPECT_LT(Hammer(application, WM_KEYUP, VK_F11, c_iKeyReleased), c_uDeepest);
    EXPECT_TRUE(application.WaitUntil([](CKinetarium& inside) {
        return CKinetariumProbe::IsFullScreen(inside) && CKinetariumProbe::HasWorker(inside);
    }));
}

TEST(Hammering, WithClicksInTheWorldNestsNothingAndOneWorkerIsLeft)
{
    const CRunningApplication application;
    application.SetControlText(L"Tot_atoms", L"5");
    EXPECT_LT(Hammer(application, WM_LBUTTONUP, 0, MAKELPARAM(300, 300)), c_uDeepest);
    EXPECT_TRUE(application.WaitForWorker(true));
}

TEST(Hammering, ACloseAmongManyPressesIsNotLost)
{
    CRunningApplication application;
    application.SetControlText(L"Tot_atoms", L"5");
    application.Do([&](CKinetarium&) {
        for (int iPress = 0; iPress < c_iPresses; ++iPress)
        {
            PostMessageW(application.GetMain(), WM_KEYUP, VK_F11, c_iKeyReleased);
            if (iPress == c_iPresses / 2)
            {
                PostMessageW(application.GetMain(), WM_CLOSE, 0, 0);
            }
        }
    });
    EXPECT_TRUE(CRunningApplication::Poll([&] { return !application.IsRunning(); }));
}
