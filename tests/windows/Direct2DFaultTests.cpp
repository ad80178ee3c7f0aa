#include "app/CKinetarium.h"
#include "tests/view/windows/FailingDirect2D.h"
#include "tests/windows/FaultTesting.h"

#include <algorithm>
#include <bit>
#include <gtest/gtest.h>
#include <string_view>

// Direct2D fails in every possible way: at each of its calls in turn, once or from then on, with an error code or with
// a null result, or by losing the device during a run. The simulation must go on, and the next start must be drawn by
// Direct2D as if nothing had happened.

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

    // Only the application's thread uses the fake.
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

    // Makes a run whose world no longer fits after its first frame.
    static void MakeRun(const CRunningApplication& application, CKinetarium& inside)
    {
        CKinetariumProbe::Start(inside);
        EXPECT_TRUE(CKinetariumProbe::HasWorker(inside));
        SetWindowPos(application.GetMain(), nullptr, 0, 0, 900, 400, SWP_NOMOVE | SWP_NOZORDER);
        for (int i = 0; i < 2; ++i)
        {
            SendMessageW(CKinetariumProbe::GetView(inside), WM_ERASEBKGND, 0, 0);
        }
        CKinetariumProbe::Stop(inside);
        EXPECT_FALSE(CKinetariumProbe::HasWorker(inside));
    }

    // Makes such a run with call iFailAt failing. Returns false if there was no such call.
    static bool TryFailure(int iFailAt, Failure eFailure)
    {
        GetFailingDirect2D() = {};
        CRunningApplication application;
        application.SetControlText(L"Tot_atoms", L"8");
        application.Do([&](CKinetarium& inside) {
            GetFailingDirect2D().failAt = iFailAt;
            GetFailingDirect2D().failure = eFailure;
            MakeRun(application, inside);
            GetFailingDirect2D().failAt = CFailingDirect2D::c_iNever;
        });
        const bool bReached = static_cast<int>(GetFailingDirect2D().calls.size()) > iFailAt;
        ExpectDrawnByDirect2D(application);
        EXPECT_TRUE(application.Close());
        return bReached;
    }

    // Tries each call up to the first frames of the new size; later calls repeat these.
    static constexpr int c_iCallsOfARun = 12;

    static void TryEveryCall(Failure eFailure)
    {
        for (int iCall = 0; iCall < c_iCallsOfARun; ++iCall)
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

// The other tests refer to the calls by their number in this order.
TEST_F(Direct2DFaults, ARunMakesTheCallsThatTheOtherTestsLetFail)
{
    {
        CRunningApplication application;
        application.Do([&](CKinetarium& inside) { MakeRun(application, inside); });
    }
    const std::vector<std::string>& calls = GetFailingDirect2D().calls;
    ASSERT_GE(calls.size(), static_cast<std::size_t>(c_iCallsOfARun));
    const auto end = calls.begin() + c_iCallsOfARun;
    EXPECT_EQ(calls[0], "D2D1CreateFactory");
    EXPECT_EQ(calls[1], "CreateHwndRenderTarget");
    for (const char* sName : {"CreateSolidColorBrush", "CreateBitmap", "CreateBitmapBrush", "EndDraw", "Resize"})
    {
        EXPECT_NE(std::find(calls.begin(), end, sName), end) << sName;
    }
}

TEST_F(Direct2DFaults, AnyCallMayFailOnce)
{
    TryEveryCall(Failure::Once);
}

TEST_F(Direct2DFaults, EveryCallFromAnyCallOnMayFail)
{
    TryEveryCall(Failure::FromThenOn);
}

TEST_F(Direct2DFaults, AnyCallMayReportSuccessAndReturnNull)
{
    TryEveryCall(Failure::OnceWithoutAny);
}

TEST_F(Direct2DFaults, TheNextStartReplacesATargetLostDuringARun)
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

TEST_F(Direct2DFaults, WithoutDirect2DGdiDraws)
{
    const CReplacedImport loading("LoadLibraryExW", LoadNothing);
    CRunningApplication application;
    ExpectUsable(application);
    EXPECT_TRUE(application.Close());
    EXPECT_TRUE(GetFailingDirect2D().calls.empty());
}

TEST_F(Direct2DFaults, WithALibraryThatHasNoFactoryFunctionGdiDraws)
{
    g_bFindsFactory = false;
    CRunningApplication application;
    ExpectUsable(application);
    EXPECT_TRUE(application.Close());
    EXPECT_TRUE(GetFailingDirect2D().calls.empty());
}
