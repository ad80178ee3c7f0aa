#include "tests/windows/CRunningApplication.h"

#include <algorithm>
#include <cstdint>
#include <gtest/gtest.h>

// A user presses faster than the world can change. A change dispatches waiting messages, and the next press is one of
// them. If the program obeyed it at once, each press would run inside the one before until the stack overflows.

namespace
{
constexpr LPARAM c_iKeyReleased = static_cast<LPARAM>(0xC0000001);
constexpr int c_iPresses = 201; // odd, so that the last press decides the state
// Bytes of stack; a nested press takes two to three thousand.
constexpr std::uintptr_t c_uDeepest = std::uintptr_t{64} * 1024;

std::uintptr_t s_uShallowest = 0;
std::uintptr_t s_uDeepest = 0;

// Called for each message that leaves the queue; records the depth of the stack.
LRESULT CALLBACK NoteStack(int iCode, WPARAM wParam, LPARAM lParam)
{
    // Kept as a number, because nothing reads from this address.
    const auto uHere = reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
    s_uShallowest = std::max(s_uShallowest, uHere);
    s_uDeepest = std::min(s_uDeepest, uHere);
    return CallNextHookEx(nullptr, iCode, wParam, lParam);
}

// Posts the message many times at once and returns the stack depth that the handling took, in bytes.
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
    // This call is queued behind all of them.
    EXPECT_TRUE(application.WaitUntil([](CKinetarium& inside) { return CKinetariumProbe::HasWorker(inside); }));
    application.Do([&](CKinetarium&) { UnhookWindowsHookEx(hHook); });
    return s_uShallowest - s_uDeepest;
}
} // namespace

TEST(Hammering, TheFullScreenKeyDoesNotNestAndTheLastPressCounts)
{
    const CRunningApplication application;
    application.SetControlText(L"Tot_atoms", L"5");
    EXPECT_LT(Hammer(application, WM_KEYUP, VK_F11, c_iKeyReleased), c_uDeepest);
    EXPECT_TRUE(application.WaitUntil([](CKinetarium& inside) {
        return CKinetariumProbe::IsFullScreen(inside) && CKinetariumProbe::HasWorker(inside);
    }));
}

TEST(Hammering, ClicksInTheWorldDoNotNestAndOneWorkerRemains)
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
