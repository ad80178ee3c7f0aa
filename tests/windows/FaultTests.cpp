#include "app/CKinetarium.h"
#include "tests/windows/CMemoryFault.h"
#include "tests/windows/FaultTesting.h"

#include <atomic>
#include <cerrno>
#include <gtest/gtest.h>
#include <stdexcept>
#include <winsock2.h>

// The system refuses the program something, or something is thrown where nobody expects it. Afterwards the program must
// be as usable as before.

namespace
{
constexpr const wchar_t* c_sMainClass = L"CKinetarium";
constexpr const wchar_t* c_sViewClass = L"CWndWorldView";
constexpr const wchar_t* c_sPanelClass = L"CDataCtrlGroup";
constexpr std::size_t c_uManyBytes = std::size_t{1} << 20;
constexpr std::size_t c_uSomeBytes = 100'000; // less than the cells' lists of 20,000 atoms take, more than all else

// Whether the replaced functions below do what they are there for.
std::atomic<bool> g_bFaulty{false};
std::atomic<int> g_iCalls{0};

class CFaulty
{
public:
    CFaulty() { g_bFaulty = true; }
    ~CFaulty() { g_bFaulty = false; }
    CFaulty(const CFaulty&) = delete;
    CFaulty& operator=(const CFaulty&) = delete;
};

uintptr_t RefuseThread(void*, unsigned, unsigned (*)(void*), void*, unsigned, unsigned*)
{
    ++g_iCalls;
    errno = EAGAIN;
    return 0;
}

HBITMAP WINAPI ThrowInsteadOfBitmap(HDC hDc, int cx, int cy)
{
    if (g_bFaulty)
    {
        ++g_iCalls;
        throw std::runtime_error("no picture today");
    }
    return CreateBitmap(cx, cy, static_cast<UINT>(GetDeviceCaps(hDc, PLANES)),
                        static_cast<UINT>(GetDeviceCaps(hDc, BITSPIXEL)), nullptr);
}

// Only the event of the simulation is born signalled.
HANDLE WINAPI RefuseSignalledEvent(SECURITY_ATTRIBUTES* pSecurity, BOOL bManual, BOOL bSignalled, const wchar_t* sName)
{
    if (!bSignalled)
        return CreateEventExW(pSecurity, sName, bManual ? DWORD{CREATE_EVENT_MANUAL_RESET} : 0, EVENT_ALL_ACCESS);
    ++g_iCalls;
    SetLastError(ERROR_NO_SYSTEM_RESOURCES);
    return nullptr;
}

int WINAPI RefuseSockets(WORD, WSADATA*)
{
    ++g_iCalls;
    return WSASYSNOTREADY;
}

int WINAPI CountCleanup()
{
    ++g_iCalls;
    return 0;
}

std::size_t CountOf(const std::wstring& sText, const std::wstring& sPart)
{
    std::size_t uCount = 0;
    for (std::size_t uPlace = sText.find(sPart); uPlace != std::wstring::npos; uPlace = sText.find(sPart, uPlace + 1))
        ++uCount;
    return uCount;
}

void RegisterForeignClass(const wchar_t* sName)
{
    WNDCLASSEXW record{};
    record.cbSize = sizeof record;
    record.lpfnWndProc = DefWindowProcW;
    record.hInstance = GetModuleHandleW(nullptr);
    record.lpszClassName = sName;
    UnregisterClassW(sName, record.hInstance);
    ASSERT_NE(RegisterClassExW(&record), 0);
}

// One run of the application, on whose thread one allocation fails.
struct CStarvedRun
{
    std::size_t place = 0;
    bool failed = false;
    std::atomic<DWORD> thread{0};
};

DWORD WINAPI RunStarved(void* pRun)
{
    auto& run = *static_cast<CStarvedRun*>(pRun);
    run.thread = GetCurrentThreadId();
    const CMemoryFault fault(run.place);
    try
    {
        const CKinetarium application(nullptr, GetModuleHandleW(nullptr));
    }
    catch (const std::bad_alloc&)
    {
        // As far as the program's entry point, which has a guard of its own.
        EXPECT_EQ(fault.GetCount(), 1u);
    }
    run.failed = fault.GetCount() != 0;
    return 0;
}

BOOL CALLBACK CloseIfVisible(HWND hWnd, LPARAM)
{
    if (IsWindowVisible(hWnd))
        PostMessageW(hWnd, WM_CLOSE, 0, 0);
    return TRUE;
}

// Runs it, and closes whatever window it shows; false when it does not end.
bool RunsToItsEnd(CStarvedRun& run)
{
    const HANDLE hThread = CreateThread(nullptr, 0, RunStarved, &run, 0, nullptr);
    const bool bEnded = CRunningApplication::Poll([&] {
        if (run.thread != 0)
            EnumThreadWindows(run.thread, CloseIfVisible, 0);
        return WaitForSingleObject(hThread, 0) == WAIT_OBJECT_0;
    });
    CloseHandle(hThread);
    return bEnded;
}

class Faults : public testing::Test
{
protected:
    Faults() { g_iCalls = 0; }

    // A debug log that never moves while the worker writes to it.
    static std::wstring MakeLog()
    {
        std::wstring sLog;
        sLog.reserve(c_uManyBytes);
        return sLog;
    }
};
} // namespace

TEST_F(Faults, WithoutMemoryForTheAtomsTheWorldIsEmptyAndTheNextStartWorks)
{
    CRunningApplication application;
    application.SetControlText(L"Tot_atoms", L"1000000");
    application.Do([](CKinetarium& inside) {
        const CMemoryFault fault(CMemoryFault::EnumWhere::ThisThread, c_uManyBytes);
        CKinetariumProbe::Start(inside);
        EXPECT_EQ(fault.GetCount(), 1u);
        EXPECT_FALSE(CKinetariumProbe::HasWorker(inside));
        EXPECT_EQ(CKinetariumProbe::GetAtomCount(inside), 0);
        SendMessageW(CKinetariumProbe::GetView(inside), WM_ERASEBKGND, 0, 0);
    });
    EXPECT_EQ(application.GetButtonText(), L"Start");
    ExpectUsable(application);
    EXPECT_TRUE(application.Close());
}

TEST_F(Faults, WithoutMemoryForTheAtomsAnEarlierWorldIsGoneToo)
{
    const CRunningApplication application;
    ExpectUsable(application);
    application.SetControlText(L"Tot_atoms", L"1000000");
    application.Do([](CKinetarium& inside) {
        const CMemoryFault fault(CMemoryFault::EnumWhere::ThisThread, c_uManyBytes);
        CKinetariumProbe::Start(inside);
        EXPECT_EQ(CKinetariumProbe::GetAtomCount(inside), 0);
    });
    ExpectUsable(application);
}

// Nobody can say which allocation will be the one that fails: here each of them is, one after the other.
TEST_F(Faults, AnyAllocationOfAStartMayFail)
{
    CRunningApplication application;
    application.SetControlText(L"Tot_atoms", L"8");
    bool bFailed = true;
    std::size_t uPlace = 0;
    for (; bFailed; ++uPlace)
    {
        application.Do([&](CKinetarium& inside) {
            {
                const CMemoryFault fault(uPlace);
                CKinetariumProbe::Start(inside);
                bFailed = fault.GetCount() != 0;
            }
            const int iAtoms = CKinetariumProbe::GetAtomCount(inside);
            EXPECT_TRUE(iAtoms == 0 || iAtoms == 8) << uPlace;
            CKinetariumProbe::Stop(inside);
            EXPECT_FALSE(CKinetariumProbe::HasWorker(inside)) << uPlace;
        });
        ASSERT_TRUE(application.IsRunning()) << uPlace;
    }
    EXPECT_GT(uPlace, 20u) << "hardly anything has failed";
    ExpectUsable(application);
    EXPECT_TRUE(application.Close());
}

TEST_F(Faults, AnyAllocationOfAStopMayFail)
{
    CRunningApplication application;
    application.SetControlText(L"Tot_atoms", L"8");
    bool bFailed = true;
    std::size_t uPlace = 0;
    for (; bFailed; ++uPlace)
    {
        application.Do([&](CKinetarium& inside) {
            CKinetariumProbe::Start(inside);
            EXPECT_TRUE(CKinetariumProbe::HasWorker(inside)) << uPlace;
            {
                const CMemoryFault fault(uPlace);
                CKinetariumProbe::Stop(inside);
                bFailed = fault.GetCount() != 0;
            }
            CKinetariumProbe::Stop(inside);
            EXPECT_FALSE(CKinetariumProbe::HasWorker(inside)) << uPlace;
        });
        ASSERT_TRUE(application.IsRunning()) << uPlace;
    }
    EXPECT_GT(uPlace, 1u) << "hardly anything has failed";
    ExpectUsable(application);
    EXPECT_TRUE(application.Close());
}

// There are too many to try them all: every so manieth is.
TEST_F(Faults, AnyAllocationOfAWholeRunMayFail)
{
    constexpr std::size_t c_uStep = 23;
    CStarvedRun last;
    do
    {
        CStarvedRun run;
        run.place = last.place;
        ASSERT_TRUE(RunsToItsEnd(run)) << "with the allocation " << run.place;
        last.failed = run.failed;
        last.place += c_uStep;
    } while (last.failed);
    EXPECT_GT(last.place, 10 * c_uStep) << "hardly anything has failed";
    CRunningApplication application;
    ExpectUsable(application);
    EXPECT_TRUE(application.Close());
}

TEST_F(Faults, ARefusedWorkerLeavesStopOnTheButtonWhoseNextPressStartsAgain)
{
    CRunningApplication application;
    application.SetControlText(L"Tot_atoms", L"8");
    {
        const CReplacedImport refusing("_beginthreadex", RefuseThread);
        Start(application);
    }
    EXPECT_EQ(g_iCalls, 1);
    EXPECT_FALSE(HasWorker(application));
    EXPECT_EQ(application.GetButtonText(), L"Stop");
    application.Do([](CKinetarium& inside) { EXPECT_TRUE(CKinetariumProbe::IsRunFlagSet(inside)); });
    ExpectUsable(application);
    EXPECT_TRUE(application.Close());
}

TEST_F(Faults, AfterARefusedWorkerTheWindowClosesAsEver)
{
    CRunningApplication application;
    {
        const CReplacedImport refusing("_beginthreadex", RefuseThread);
        Start(application);
    }
    Stop(application);
    EXPECT_EQ(application.GetButtonText(), L"Stop");
    EXPECT_TRUE(application.Close());
}

// The first iteration makes the room for the lists of the cells.
TEST_F(Faults, AnExceptionInTheIterationEndsTheRunAndTheButtonStillStopsAndStarts)
{
    std::wstring sLog = MakeLog();
    {
        CRunningApplication application(false, &sLog);
        application.SetControlText(L"Tot_atoms", L"20000");
        application.Do([&](CKinetarium& inside) {
            const CMemoryFault fault(CMemoryFault::EnumWhere::OtherThreads, c_uSomeBytes);
            CKinetariumProbe::Start(inside);
            EXPECT_TRUE(CRunningApplication::Poll([&] { return CKinetariumProbe::IsWorkerFinished(inside); }));
            EXPECT_EQ(fault.GetCount(), 1u);
            EXPECT_TRUE(CKinetariumProbe::HasWorker(inside));
        });
        EXPECT_EQ(application.GetButtonText(), L"Stop");
        application.PressButton();
        EXPECT_TRUE(application.WaitForWorker(false));
        EXPECT_EQ(application.GetButtonText(), L"Start");
        ExpectUsable(application);
        EXPECT_TRUE(application.Close());
    }
    EXPECT_EQ(CountOf(sLog, L"Exception: std::bad_alloc"), 1u);
}

TEST_F(Faults, AnExceptionInTheDrawingEndsItsFrameAndNeitherTheRunNorTheProgram)
{
    std::wstring sLog = MakeLog();
    {
        CRunningApplication application(false, &sLog);
        const CReplacedImport throwing("CreateCompatibleBitmap", ThrowInsteadOfBitmap);
        application.SetControlText(L"Tot_atoms", L"8");
        {
            const CFaulty faulty;
            Start(application);
            EXPECT_TRUE(CRunningApplication::Poll([] { return g_iCalls > 10; }));
            SendMessageW(application.GetMain(), WM_SIZE, 0, 0);
            EXPECT_EQ(SendMessageW(application.GetMain(), WM_ERASEBKGND, 0, 0), 1);
            EXPECT_TRUE(HasWorker(application));
        }
        EXPECT_TRUE(WaitForFrames());
        Stop(application);
        ExpectUsable(application);
        EXPECT_TRUE(application.Close());
    }
    EXPECT_GT(CountOf(sLog, L"Exception: std::runtime_error \"no picture today\""), 10u);
    EXPECT_GT(CountOf(sLog, L"CWndWorldView::OnEraseBackground"), 1u);
    EXPECT_GT(CountOf(sLog, L"CKinetarium::OnEraseBackground"), 0u);
}

TEST_F(Faults, WithoutTheFinishedEventEveryStopStillEndsItsWorker)
{
    const CReplacedImport refusing("CreateEventW", RefuseSignalledEvent);
    CRunningApplication application;
    EXPECT_EQ(g_iCalls, 1);
    ExpectUsable(application);
    ExpectUsable(application);
    Start(application);
    EXPECT_TRUE(application.Close()) << "with a simulation running";
}

TEST_F(Faults, WithoutSocketsTheProgramEndsAtOnceWithoutAWindow)
{
    {
        const CReplacedImport refusing("WSAStartup", RefuseSockets);
        EXPECT_TRUE(RunsToItsEnd());
        EXPECT_EQ(g_iCalls, 1);
        const CReplacedImport counting("WSACleanup", CountCleanup);
        EXPECT_TRUE(RunsToItsEnd());
        EXPECT_EQ(g_iCalls, 2) << "what was not started is not cleaned up";
    }
    CRunningApplication application;
    ExpectUsable(application);
    EXPECT_TRUE(application.Close());
}

// A second application in one process finds the classes of the first.
TEST_F(Faults, ItsOwnWindowClassesMayExistAlready)
{
    for (int i = 0; i < 2; ++i)
    {
        CRunningApplication application;
        ExpectUsable(application);
        EXPECT_TRUE(application.Close());
    }
}

// A library that was loaded into the process may have used the names.
TEST_F(Faults, ForeignWindowClassesOfTheSameNamesAreReplaced)
{
    for (const wchar_t* sName : {c_sMainClass, c_sViewClass, c_sButtonClass, c_sPanelClass})
        RegisterForeignClass(sName);
    CRunningApplication application;
    EXPECT_EQ(application.GetControlText(L"Width"), L"512");
    ExpectUsable(application);
    EXPECT_TRUE(application.Close());
}

TEST_F(Faults, AForeignWindowOfTheMainWindowsClassEndsTheProgramAndTheNextOneRuns)
{
    RegisterForeignClass(c_sMainClass);
    const HWND hForeign =
        CreateWindowW(c_sMainClass, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, GetModuleHandleW(nullptr), nullptr);
    ASSERT_NE(hForeign, nullptr);
    EXPECT_TRUE(RunsToItsEnd());
    DestroyWindow(hForeign);
    CRunningApplication application;
    ExpectUsable(application);
    EXPECT_TRUE(application.Close());
}
