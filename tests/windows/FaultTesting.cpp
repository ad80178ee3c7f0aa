#include "tests/windows/FaultTesting.h"

#include "app/CKinetarium.h"

#include <atomic>
#include <gtest/gtest.h>
#include <memory>

namespace
{
using BitBltFunction = BOOL WINAPI(HDC, int, int, int, int, HDC, int, int, DWORD);

std::atomic<int> g_iFrames{0};
BitBltFunction* g_pBitBlt = nullptr;

BOOL WINAPI CountFrame(HDC hTo, int x, int y, int cx, int cy, HDC hFrom, int xFrom, int yFrom, DWORD dwOperation)
{
    ++g_iFrames;
    // cppcheck-suppress CastAddressToIntegerAtReturn ; it does not see the type of the called function
    return g_pBitBlt(hTo, x, y, cx, cy, hFrom, xFrom, yFrom, dwOperation);
}
} // namespace

bool WaitForFrames()
{
    constexpr int c_iEnough = 3;
    g_pBitBlt = BitBlt;
    const CReplacedImport counting("BitBlt", CountFrame);
    g_pBitBlt = counting.GetOriginal<BitBltFunction>();
    const int iBefore = g_iFrames;
    return CRunningApplication::Poll([&] { return g_iFrames - iBefore >= c_iEnough; });
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
    EXPECT_TRUE(WaitForFrames()) << "no frames are drawn";
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
