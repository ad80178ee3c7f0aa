#include "tests/windows/CRunningApplication.h"

#include <gtest/gtest.h>
#include <vector>

// Intermediate positions and sizes that become visible are flicker. These tests watch every step of every window.

namespace
{
constexpr LPARAM c_iKeyReleased = static_cast<LPARAM>(0xC0000001);

// One change of a window's position or size, as reported to the window.
struct CStep
{
    HWND hWnd = nullptr;
    RECT rcWindow{}; // on the screen
    bool visible = false;
};

std::vector<CStep>* s_pSteps = nullptr;

LRESULT CALLBACK RecordStep(int iCode, WPARAM wParam, LPARAM lParam)
{
    const auto* pSent = reinterpret_cast<const CWPSTRUCT*>(lParam);
    if (iCode == HC_ACTION && s_pSteps != nullptr && pSent->message == WM_WINDOWPOSCHANGED)
    {
        const auto* pPosition = reinterpret_cast<const WINDOWPOS*>(pSent->lParam);
        constexpr UINT c_uNeither = SWP_NOMOVE | SWP_NOSIZE;
        if ((pPosition->flags & c_uNeither) != c_uNeither)
        {
            CStep step{pSent->hwnd, {}, false};
            GetWindowRect(pSent->hwnd, &step.rcWindow);
            // The status bar first gets an empty size and then sets its own; the first step shows nothing.
            step.visible = IsWindowVisible(pSent->hwnd) != FALSE && IsRectEmpty(&step.rcWindow) == FALSE;
            s_pSteps->push_back(step);
        }
    }
    return CallNextHookEx(nullptr, iCode, wParam, lParam);
}

// Toggles full screen and returns all steps of the program's windows.
std::vector<CStep> WatchToggle(const CRunningApplication& application)
{
    std::vector<CStep> steps;
    application.Do([&](CKinetarium&) {
        s_pSteps = &steps;
        const HHOOK hHook = SetWindowsHookExW(WH_CALLWNDPROC, RecordStep, nullptr, GetCurrentThreadId());
        SendMessageW(application.GetMain(), WM_KEYUP, VK_F11, c_iKeyReleased);
        UnhookWindowsHookEx(hHook);
        s_pSteps = nullptr;
    });
    return steps;
}

struct CParts
{
    HWND hView = nullptr;
    std::vector<HWND> others; // the windows that full screen hides
};

CParts GetParts(const CRunningApplication& application)
{
    CParts parts;
    application.Do([&](CKinetarium& inside) {
        parts.hView = CKinetariumProbe::GetView(inside);
        parts.others = {CKinetariumProbe::GetPanel(inside), CKinetariumProbe::GetStartButton(inside),
                        CKinetariumProbe::GetStatusBar(inside)};
    });
    return parts;
}

int CountSteps(const std::vector<CStep>& steps, HWND hWnd)
{
    int iCount = 0;
    for (const CStep& step : steps)
    {
        iCount += step.hWnd == hWnd ? 1 : 0;
    }
    return iCount;
}

void Prepare(const CRunningApplication& application)
{
    application.SetControlText(L"Tot_atoms", L"5");
    application.SetControlText(L"Width", L"200");
    application.SetControlText(L"Height", L"150");
    application.Do([](CKinetarium& inside) { CKinetariumProbe::Start(inside); });
}
} // namespace

TEST(FullScreenWithoutFlicker, EnteringItMovesTheViewInOneStepAndNoOtherVisibleWindow)
{
    const CRunningApplication application;
    Prepare(application);
    const CParts parts = GetParts(application);
    const std::vector<CStep> steps = WatchToggle(application);

    RECT rcScreen{};
    GetWindowRect(application.GetMain(), &rcScreen);
    ASSERT_EQ(CountSteps(steps, application.GetMain()), 1);
    ASSERT_EQ(CountSteps(steps, parts.hView), 1);
    for (const CStep& step : steps)
    {
        EXPECT_TRUE(step.hWnd != parts.hView || EqualRect(&step.rcWindow, &rcScreen) != FALSE);
        for (const HWND hOther : parts.others)
        {
            EXPECT_FALSE(step.hWnd == hOther && step.visible);
        }
    }
}

TEST(FullScreenWithoutFlicker, LeavingItShowsTheOtherWindowsOnlyInTheirFinalPlaces)
{
    const CRunningApplication application;
    Prepare(application);
    const CParts parts = GetParts(application);
    WatchToggle(application);
    const std::vector<CStep> steps = WatchToggle(application);

    EXPECT_GT(CountSteps(steps, application.GetMain()), 0);
    for (const HWND hOther : parts.others)
    {
        RECT rcEnd{};
        GetWindowRect(hOther, &rcEnd);
        EXPECT_TRUE(IsWindowVisible(hOther));
        for (const CStep& step : steps)
        {
            EXPECT_TRUE(step.hWnd != hOther || !step.visible || EqualRect(&step.rcWindow, &rcEnd) != FALSE);
        }
    }
}
