#include "classes/windows/crash/CCrashReport.h"

#include "classes/core/CExceptionHandler.h"
#include "classes/windows/crash/CrashStages.h"
#include "classes/windows/crash/CrashSteps.h"

#include <windows.h>

#include <atomic>
#include <memory>

namespace
{
constexpr DWORD c_dwPatience = 10000;           // ms for a step
constexpr DWORD c_dwDumpPatience = 60000;       // ms for the dump, whose size and disk are unknown
constexpr UINT c_uExceptionExitCode = 3;        // as std::abort gives it
constexpr ULONG c_uStackReserve = 65536;        // bytes
constexpr DWORD c_dwExceptionCode = 0xE0000001; // in the dump of an exception, which has no code of the system

// Set before any crash. Never freed: another thread may be reporting a crash at any moment.
std::atomic<const CCrashReportSettings*> g_pSettings{};
std::atomic<DWORD> g_dwMainThread{};

// The thread whose crash is being reported, 0 before any crash.
std::atomic<DWORD> g_dwCrashedThread{0};

// If the first step hangs, the others would too: the crashed thread holds a lock that they all need.
void WriteFiles()
{
    if (RunCrashStage(CrashStep_Report, c_dwPatience) == EnumStageEnd::TimedOut)
    {
        return;
    }
    RunCrashStage(CrashStep_DebugOutput, c_dwPatience);
    if (GetCrash().report == INVALID_HANDLE_VALUE)
    {
        return;
    }
    RunCrashStage(CrashStep_Stack, c_dwPatience);
    RunCrashStage(CrashStep_Dump, c_dwDumpPatience);
    RunCrashStage(CrashStep_DeleteOld, c_dwPatience);
}

[[noreturn]] void EndProcess(UINT uExitCode)
{
    TerminateProcess(GetCurrentProcess(), uExitCode);
    for (;;)
    {
        Sleep(INFINITE);
    }
}

// One crash is reported per process. Another thread that crashes later waits for the end. A second crash of the
// reporting thread ends the process.
void TakeCrash()
{
    const DWORD dwThread = GetCurrentThreadId();
    EndFaultedCrashStage();
    DWORD dwNobody = 0;
    if (g_dwCrashedThread.compare_exchange_strong(dwNobody, dwThread))
    {
        return;
    }
    if (g_dwCrashedThread.load() == dwThread)
    {
        EndProcess(c_uExceptionExitCode);
    }
    for (;;)
    {
        Sleep(INFINITE);
    }
}

// An exception has no context of its own. The context here, inside std::terminate, has the throwing calls above it.
void CopyCrash(const CUnhandledError& error)
{
    CCrash& crash = GetCrash();
    crash.settings = g_pSettings.load();
    crash.thread = GetCurrentThreadId();
    crash.mainThread = crash.thread == g_dwMainThread.load();
    const auto* pPointers = static_cast<const EXCEPTION_POINTERS*>(error.fault);
    if (pPointers != nullptr)
    {
        crash.record = *pPointers->ExceptionRecord;
        crash.context = *pPointers->ContextRecord;
    }
    else
    {
        RtlCaptureContext(&crash.context);
        crash.record.ExceptionCode = c_dwExceptionCode;
        crash.record.ExceptionAddress = reinterpret_cast<void*>(crash.context.Rip);
    }
    crash.exception = error.exception;
    crash.pointers = {&crash.record, &crash.context};
}

void OnUnhandledError(const CUnhandledError& error)
{
    TakeCrash();
    CopyCrash(error);
    WriteFiles();
    RunCrashStage_Window(CrashStep_TellUser, c_dwPatience);
    EndProcess(error.exception != nullptr ? c_uExceptionExitCode : GetCrash().record.ExceptionCode);
}
} // namespace

CCrashReport::CCrashReport(const CCrashReportSettings& settings) noexcept
{
    try
    {
        g_pSettings.store(std::make_unique<CCrashReportSettings>(settings).release());
    }
    catch (...)
    {
        // A program that starts without a crash report is better than one that does not start.
        return;
    }
    g_dwMainThread.store(GetCurrentThreadId());
    PrepareThread();
    CExceptionHandler::SetReporter(&OnUnhandledError);
}

CCrashReport::~CCrashReport()
{
    CExceptionHandler::SetReporter(nullptr);
}

void CCrashReport::PrepareThread() noexcept
{
    ULONG uReserve = c_uStackReserve;
    SetThreadStackGuarantee(&uReserve);
}
