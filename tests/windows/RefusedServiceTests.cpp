#include "app/CKinetarium.h"
#include "tests/windows/CMemoryFault.h"
#include "tests/windows/FaultTesting.h"

#include <atomic>
#include <cerrno>
#include <gtest/gtest.h>
#include <winsock2.h>

// The system refuses a service that it normally grants: a thread, an event, sockets. Afterwards the program must be as
// usable as before.

namespace
{
std::atomic<int> g_iCalls{0}; // of the replaced functions below

uintptr_t RefuseThread(void*, unsigned, unsigned (*)(void*), void*, unsigned, unsigned*)
{
    ++g_iCalls;
    errno = EAGAIN;
    return 0;
}

// Only the simulation's event is created signalled.
HANDLE WINAPI RefuseSignalledEvent(SECURITY_ATTRIBUTES* pSecurity, BOOL bManual, BOOL bSignalled, const wchar_t* sName)
{
    if (!bSignalled)
    {
        return CreateEventExW(pSecurity, sName, bManual ? DWORD{CREATE_EVENT_MANUAL_RESET} : 0, EVENT_ALL_ACCESS);
    }
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

class RefusedServices : public testing::Test
{
protected:
    RefusedServices() { g_iCalls = 0; }
};
} // namespace

TEST_F(RefusedServices, ARefusedWorkerLeavesTheButtonAtStopAndTheNextPressStartsAgain)
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

TEST_F(RefusedServices, AfterARefusedWorkerTheWindowClosesAsUsual)
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

TEST_F(RefusedServices, WithoutTheFinishedEventEveryStopStillEndsItsWorker)
{
    const CReplacedImport refusing("CreateEventW", RefuseSignalledEvent);
    CRunningApplication application;
    EXPECT_EQ(g_iCalls, 1);
    ExpectUsable(application);
    ExpectUsable(application);
    Start(application);
    EXPECT_TRUE(application.Close()) << "with a simulation running";
}

// The worker then ends before its loop has begun.
TEST_F(RefusedServices, WithoutTheFinishedEventAWorkerWithoutMemoryStillTellsThatItHasEnded)
{
    const CReplacedImport refusing("CreateEventW", RefuseSignalledEvent);
    CRunningApplication application;
    EXPECT_EQ(g_iCalls, 1);
    bool bFinished = false;
    application.Do([&](CKinetarium& inside) {
        const CMemoryFault fault(CMemoryFault::EnumWhere::OtherThreads, 0);
        CKinetariumProbe::Start(inside);
        bFinished = CRunningApplication::Poll([&] { return CKinetariumProbe::IsWorkerFinished(inside); });
        EXPECT_GE(fault.GetCount(), 1u);
    });
    ASSERT_TRUE(bFinished) << "a stop would wait for ever";
    Stop(application);
    ExpectUsable(application);
    EXPECT_TRUE(application.Close());
}

TEST_F(RefusedServices, WithoutSocketsTheProgramEndsAtOnceWithoutAWindow)
{
    {
        const CReplacedImport refusing("WSAStartup", RefuseSockets);
        EXPECT_TRUE(RunsToItsEnd());
        EXPECT_EQ(g_iCalls, 1);
        const CReplacedImport counting("WSACleanup", CountCleanup);
        EXPECT_TRUE(RunsToItsEnd());
        EXPECT_EQ(g_iCalls, 2) << "WSACleanup was called without a successful WSAStartup";
    }
    CRunningApplication application;
    ExpectUsable(application);
    EXPECT_TRUE(application.Close());
}
