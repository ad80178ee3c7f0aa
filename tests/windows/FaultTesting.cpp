#include "tests/windows/FaultTesting.h"

#include "app/CKinetarium.h"
#include "tests/view/windows/ScreenCapture.h"

#include <gtest/gtest.h>
#include <utility>

bool WaitForFrames(const CRunningApplication& application)
{
    constexpr int c_iEnough = 3;
    HWND hView = nullptr;
    application.Do([&](CKinetarium& inside) { hView = CKinetariumProbe::GetView(inside); });
    int iChanges = 0;
    CPixels before = CaptureClientArea(hView);
    return CRunningApplication::Poll([&] {
        CPixels now = CaptureClientArea(hView);
        iChanges += now == before ? 0 : 1;
        before = std::move(now);
        return iChanges >= c_iEnough;
    });
}

void Start(const CRunningApplication& application)
{
    application.Do([](CKinetarium& inside) { CKinetariumProbe::Start(inside); });
}

void Stop(const CRunningApplication& application)
{
    application.Do([](CKinetarium& inside) { CKinetariumProbe::Stop(inside); });
}

bool HasWorker(const CRunningApplication& application)
{
    bool bHas = false;
    application.Do([&](CKinetarium& inside) { bHas = CKinetariumProbe::HasWorker(inside); });
    return bHas;
}

void ExpectUsable(const CRunningApplication& application)
{
    application.SetControlText(L"Tot_atoms", L"8");
    application.PressButton();
    ASSERT_TRUE(application.WaitForWorker(true)) << "the worker does not start";
    EXPECT_EQ(application.GetButtonText(), L"Stop");
    application.Do([](CKinetarium& inside) { EXPECT_EQ(CKinetariumProbe::GetAtomCount(inside), 8); });
    EXPECT_TRUE(WaitForFrames(application)) << "no frames are drawn";
    application.PressButton();
    ASSERT_TRUE(application.WaitForWorker(false)) << "the worker does not stop";
    EXPECT_EQ(application.GetButtonText(), L"Start");
}

bool RunsToItsEnd()
{
    constexpr DWORD c_dwPatience = 20000; // ms
    const auto run = [](void*) -> DWORD {
        const CKinetarium application(nullptr, GetModuleHandleW(nullptr));
        return 0;
    };
    const HANDLE hThread = CreateThread(nullptr, 0, run, nullptr, 0, nullptr);
    const bool bEnded = WaitForSingleObject(hThread, c_dwPatience) == WAIT_OBJECT_0;
    CloseHandle(hThread);
    return bEnded;
}
