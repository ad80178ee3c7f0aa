#include "app/CKinetarium.h"
#include "tests/windows/CMemoryFault.h"
#include "tests/windows/FaultTesting.h"

#include <atomic>
#include <gtest/gtest.h>
#include <new>

// A large list of atoms, or any single allocation, fails for lack of memory. Afterwards the program must be as usable
// as before.

namespace
{
constexpr std::size_t c_uManyBytes = std::size_t{1} << 20;

// One run of the application with one failing allocation on its thread.
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
        // The exception reaches the program's entry point, which has a guard of its own.
        EXPECT_EQ(fault.GetCount(), 1u);
    }
    run.failed = fault.GetCount() != 0;
    return 0;
}

BOOL CALLBACK CloseIfVisible(HWND hWnd, LPARAM)
{
    if (IsWindowVisible(hWnd))
    {
        PostMessageW(hWnd, WM_CLOSE, 0, 0);
    }
    return TRUE;
}

// Runs it and closes any window that it shows; false if it does not end.
bool RunsToItsEnd(CStarvedRun& run)
{
    const HANDLE hThread = CreateThread(nullptr, 0, RunStarved, &run, 0, nullptr);
    const bool bEnded = CRunningApplication::Poll([&] {
        if (run.thread != 0)
        {
            EnumThreadWindows(run.thread, CloseIfVisible, 0);
        }
        return WaitForSingleObject(hThread, 0) == WAIT_OBJECT_0;
    });
    CloseHandle(hThread);
    return bEnded;
}
} // namespace

TEST(MemoryFaults, WithoutMemoryForTheAtomsTheWorldIsEmptyAndTheNextStartWorks)
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

TEST(MemoryFaults, WithoutMemoryForTheAtomsTheEarlierWorldIsCleared)
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

// Any allocation can be the one that fails, so the test lets each of them fail in turn.
TEST(MemoryFaults, AnyAllocationOfAStartMayFail)
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

TEST(MemoryFaults, AnyAllocationOfAStopMayFail)
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

// There are too many to try them all: every 23rd allocation fails.
TEST(MemoryFaults, AnyAllocationOfAWholeRunMayFail)
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
