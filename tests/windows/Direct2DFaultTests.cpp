#include "app/CKinetarium.h"
#include "tests/view/windows/FailingDirect2D.h"
#include "tests/windows/FaultTesting.h"

#include <algorithm>
#include <bit>
#include <gtest/gtest.h>
#include <string_view>

// Direct2D fails the whole program in every way it can: at each of its calls in turn, for once or for good, in words or
// by giving nothing, or by taking the device away in the middle of a run. The simulation must go on, and the next start
// must be drawn as if nothing had been.

namespace
{
using LoadFunction = HMODULE WINAPI(const wchar_t*, HANDLE, DWORD);
using FindFunction = FARPROC WINAPI(HMODULE, const char*);
using Failure = CFailingDirect2D::EnumFailure;

LoadFunction* g_pLoad = nullptr;
FindFunction* g_pFind = nullptr;
bool g_bFindsFactory = true;

HRESULT WINAPI MakeFactory(D2D1_FACTORY_TYPE, REFIID, const D2D1_FACTORY_OPTIONS*, void** ppFactory)
{
    return CreateFailingFactory(reinterpret_cast<ID2D1Factory**>(ppFactory));
}

HMODULE WINAPI LoadFake(const wchar_t* sFile, HANDLE hReserved, DWORD dwFlags)
{
    return std::wstring_view(sFile) == L"d2d1.dll" ? GetModuleHandleW(nullptr) : g_pLoad(sFile, hReserved, dwFlags);
}

HMODULE WINAPI LoadNothing(const wchar_t* sFile, HANDLE hReserved, DWORD dwFlags)
{
    return std::wstring_view(sFile) == L"d2d1.dll" ? nullptr : g_pLoad(sFile, hReserved, dwFlags);
}

FARPROC WINAPI FindFake(HMODULE hModule, const char* sName)
{
    if (std::string_view(sName) != "D2D1CreateFactory")
    {
        return g_pFind(hModule, sName);
    }
    return g_bFindsFactory ? std::bit_cast<FARPROC>(&MakeFactory) : nullptr;
}

class Direct2DFaults : public testing::Test
{
protected:
    Direct2DFaults() : m_Load("LoadLibraryExW", LoadFake), m_Find("GetProcAddress", FindFake)
    {
        g_pLoad = m_Load.GetOriginal<LoadFunction>();
        g_pFind = m_Find.GetOriginal<FindFunction>();
        g_bFindsFactory = true;
        GetFailingDirect2D() = {};
    }

    ~Direct2DFaults() override { EXPECT_EQ(GetFailingDirect2D().alive, 0) << "an object was never released"; }

    // The fake is used on the application's thread only.
    static int CountFrames(const CRunningApplication& application)
    {
        int iFrames = 0;
        application.Do([&](CKinetarium&) { iFrames = GetFailingDirect2D().frames; });
        return iFrames;
    }

    static bool WaitForDirect2DFrames(const CRunningApplication& application)
    {
        const int iBefore = CountFrames(application);
        return application.WaitUntil([&](CKinetarium&) { return GetFailingDirect2D().frames > iBefore + 2; });
    }

    static void ExpectDrawnByDirect2D(const CRunningApplication& application)
    {
        application.Do([](CKinetarium&) { GetFailingDirect2D().ellipses = 0; });
        Start(application);
        EXPECT_TRUE(HasWorker(application));
        EXPECT_TRUE(WaitForDirect2DFrames(application));
        application.Do([](CKinetarium&) { EXPECT_GT(GetFailingDirect2D().ellipses, 0); });
        Stop(application);
    }

    // One life of the program in which call iFailAt fails. Returns false when there was no such call.
    static bool TryFailure(int iFailAt, Failure eFailure)
    {
        GetFailingDirect2D() = {};
        CRunningApplication application;
        application.SetControlText(L"Tot_atoms", L"8");
        application.Do([&](CKinetarium& inside) {
            GetFailingDirect2D().failAt = iFailAt;
            GetFailingDirect2D().failure = eFailure;
            CKinetariumProbe::Start(inside);
            EXPECT_TRUE(CKinetariumProbe::HasWorker(inside));
            for (int i = 0; i < 2; ++i)
            {
                SendMessageW(CKinetariumProbe::GetView(inside), WM_ERASEBKGND, 0, 0);
            }
            SetWindowPos(application.GetMain(), nullptr, 0, 0, 900, 700, SWP_NOMOVE | SWP_NOZORDER);
            CKinetariumProbe::Stop(inside);
            EXPECT_FALSE(CKinetariumProbe::HasWorker(inside));
            GetFailingDirect2D().failAt = CFailingDirect2D::c_iNever;
        });
        const bool bReached = static_cast<int>(GetFailingDirect2D().calls.size()) > iFailAt;
        ExpectDrawnByDirect2D(application);
        EXPECT_TRUE(application.Close());
        return bReached;
    }

    // Each call up to the first frames; those that follow are more of the same.
    static void TryEveryCall(Failure eFailure)
    {
        constexpr int c_iCallsOfAStart = 12;
        for (int iCall = 0; iCall < c_iCallsOfAStart; ++iCall)
        {
            SCOPED_TRACE("call " + std::to_string(iCall));
            ASSERT_TRUE(TryFailure(iCall, eFailure));
            EXPECT_EQ(GetFailingDirect2D().alive, 0);
            EXPECT_EQ(GetFailingDirect2D().misuses, 0);
        }
    }

    CReplacedImport m_Load;
    CReplacedImport m_Find;
};
} // namespace

// The order is what the numbers in the other tests mean.
TEST_F(Direct2DFaults, TheCallsOfAStartAreThoseThatAreLetFail)
{
    {
        CRunningApplication application;
        ExpectDrawnByDirect2D(application);
    }
    const std::vector<std::string>& calls = GetFailingDirect2D().calls;
    ASSERT_GE(calls.size(), 10u);
    EXPECT_EQ(calls[0], "D2D1CreateFactory");
    EXPECT_EQ(calls[1], "CreateHwndRenderTarget");
    for (const char* sName : {"CreateSolidColorBrush", "CreateBitmap", "CreateBitmapBrush", "EndDraw", "Resize"})
    {
        EXPECT_NE(std::find(calls.begin(), calls.begin() + 12, sName), calls.begin() + 12) << sName;
    }
}

TEST_F(Direct2DFaults, AnyCallMayFailOnce)
{
    TryEveryCall(Failure::Once);
}

TEST_F(Direct2DFaults, FromAnyCallOnEverythingMayFail)
{
    TryEveryCall(Failure::FromThenOn);
}

TEST_F(Direct2DFaults, AnyCallMayClaimSuccessAndGiveNothing)
{
    TryEveryCall(Failure::OnceWithoutAny);
}

TEST_F(Direct2DFaults, ATargetLostInMidRunIsMadeAnewByTheNextStart)
{
    CRunningApplication application;
    application.SetControlText(L"Tot_atoms", L"8");
    Start(application);
    ASSERT_TRUE(WaitForDirect2DFrames(application));
    application.Do([](CKinetarium&) { GetFailingDirect2D().loseTarget = true; });
    EXPECT_TRUE(application.WaitUntil([](CKinetarium&) { return !GetFailingDirect2D().loseTarget; }));
    EXPECT_TRUE(HasWorker(application));
    Stop(application);
    EXPECT_FALSE(HasWorker(application));
    ExpectDrawnByDirect2D(application);
    EXPECT_EQ(GetFailingDirect2D().targets, 2);
    EXPECT_TRUE(application.Close());
}

TEST_F(Direct2DFaults, ASystemWithoutDirect2DIsDrawnToByGdi)
{
    const CReplacedImport loading("LoadLibraryExW", LoadNothing);
    CRunningApplication application;
    ExpectUsable(application);
    EXPECT_TRUE(application.Close());
    EXPECT_TRUE(GetFailingDirect2D().calls.empty());
}

TEST_F(Direct2DFaults, ALibraryThatMakesNoFactoriesIsAsGoodAsNone)
{
    g_bFindsFactory = false;
    CRunningApplication application;
    ExpectUsable(application);
    EXPECT_TRUE(application.Close());
    EXPECT_TRUE(GetFailingDirect2D().calls.empty());
}
