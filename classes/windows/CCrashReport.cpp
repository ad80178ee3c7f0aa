#include "classes/windows/CCrashReport.h"

#include "classes/core/CExceptionHandler.h"
#include "classes/core/CrashFiles.h"
#include "classes/core/CrashNote.h"
#include "classes/core/CrashText.h"
#include "classes/core/OutputDebugMessage.h"
#include "classes/core/SystemMessage.h"
#include "classes/core/Utf8.h"
#include "classes/windows/CrashDump.h"
#include "classes/windows/CrashFacts.h"
#include "classes/windows/CrashStack.h"
#include "classes/windows/CrashStages.h"

#include <windows.h>

#include <algorithm>
#include <atomic>
#include <memory>
#include <vector>

namespace
{
constexpr DWORD c_dwPatience = 10000;           // ms for a step
constexpr DWORD c_dwDumpPatience = 60000;       // ms for the dump, whose size and disk nobody knows
constexpr UINT c_uExceptionExitCode = 3;        // as std::abort gives it
constexpr ULONG c_uStackReserve = 65536;        // bytes
constexpr DWORD c_dwExceptionCode = 0xE0000001; // in the dump of an exception: a software error without a system's code
constexpr std::size_t c_uPathSize = 32768;      // characters, the longest path that the system knows
constexpr std::size_t c_uTextSize = 16384;
constexpr std::size_t c_uLineSize = 512;

// What is known before any crash. Never freed: a crash on another thread may be under way at any moment.
std::atomic<const CCrashReportSettings*> g_pSettings{};
std::atomic<DWORD> g_dwMainThread{};

// The crash itself. Written by the thread that crashed and by one step after another, never by two at a time.
std::atomic<DWORD> g_dwCrashedThread{0};

struct CCrash
{
    const char* exception = nullptr; // null for a fault
    EXCEPTION_RECORD record{};
    CONTEXT context{};
    EXCEPTION_POINTERS pointers{};
    char error[c_uLineSize] = {};
    char stem[c_uLineSize] = {};
    HANDLE report = INVALID_HANDLE_VALUE;
    DWORD openError = ERROR_SUCCESS;
};

CCrash g_crash;
wchar_t g_sPath[c_uPathSize];
char g_sText[c_uTextSize];

// Puts folder, stem and ending into g_sPath; false when they do not fit.
bool MakePath(const char* sEnding)
{
    const std::wstring& sFolder = g_pSettings.load()->folder;
    char storage[c_uLineSize];
    const CFixedText name = CFixedText(storage, sizeof storage).Add(g_crash.stem).Add(sEnding);
    if (sFolder.size() + name.GetLength() >= c_uPathSize)
        return false;
    std::copy(sFolder.begin(), sFolder.end(), g_sPath);
    return MultiByteToWideChar(CP_UTF8, 0, name.Get(), -1, g_sPath + sFolder.size(),
                               static_cast<int>(c_uPathSize - sFolder.size())) != 0;
}

HANDLE CreateCrashFile(const char* sEnding)
{
    if (!MakePath(sEnding))
    {
        SetLastError(ERROR_FILENAME_EXCED_RANGE);
        return INVALID_HANDLE_VALUE;
    }
    return CreateFileW(g_sPath, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_NEW,
                       FILE_ATTRIBUTE_NORMAL, nullptr);
}

void WriteReport(const CFixedText& text)
{
    DWORD dwWritten = 0;
    WriteFile(g_crash.report, text.Get(), static_cast<DWORD>(text.GetLength()), &dwWritten, nullptr);
}

// Takes the first free name of this second.
void OpenReport(const CCrashTime& time)
{
    for (unsigned uAttempt = 1; uAttempt <= c_uCrashStemAttempts; ++uAttempt)
    {
        CFixedText stem(g_crash.stem, sizeof g_crash.stem);
        AddCrashStem(stem, g_pSettings.load()->program.c_str(), time, uAttempt);
        g_crash.report = CreateCrashFile(c_sCrashReportEnding);
        g_crash.openError = g_crash.report == INVALID_HANDLE_VALUE ? GetLastError() : DWORD{ERROR_SUCCESS};
        if (g_crash.openError != ERROR_FILE_EXISTS)
            return;
    }
}

void DescribeError()
{
    CFixedText error(g_crash.error, sizeof g_crash.error);
    if (g_crash.exception != nullptr)
    {
        error.Add("exception that nothing caught: ").Add(g_crash.exception);
        return;
    }
    CFault fault;
    fault.code = g_crash.record.ExceptionCode;
    fault.detailCount = g_crash.record.NumberParameters;
    for (std::size_t i = 0; i < std::size(fault.details); ++i)
        fault.details[i] = g_crash.record.ExceptionInformation[i];
    AddFault(error, fault);
}

// The first step: what can be said without looking at the stack, safely on disk before anything else is tried.
void Step_Report()
{
    const CCrashReportSettings& settings = *g_pSettings.load();
    CCrashFacts facts;
    facts.time = GetCrashTime();
    DescribeError();
    OpenReport(facts.time);
    if (g_crash.report == INVALID_HANDLE_VALUE)
        return;

    char build[c_uLineSize];
    char system[c_uLineSize];
    char processor[c_uLineSize];
    CFixedText buildText(build, sizeof build);
    CFixedText systemText(system, sizeof system);
    CFixedText processorText(processor, sizeof processor);
    AddImageChecksum(buildText.Add(settings.build.c_str()));
    AddSystemVersion(systemText);
    AddProcessor(processorText);
    GetCrashMemory(facts);
    facts.program = settings.program.c_str();
    facts.version = settings.version.c_str();
    facts.build = build;
    facts.error = g_crash.error;
    facts.place = FindCrashPlace(reinterpret_cast<std::uint64_t>(g_crash.record.ExceptionAddress));
    facts.thread = g_dwCrashedThread.load();
    facts.mainThread = facts.thread == g_dwMainThread.load();
    facts.activity = GetCrashNote()[0] != '\0' ? GetCrashNote() : nullptr;
    facts.system = system;
    facts.processor = processor;

    CFixedText text(g_sText, c_uTextSize);
    AddCrashReport(text, facts);
    WriteReport(text);
    FlushFileBuffers(g_crash.report);
}

// Each line is written on its own: a broken stack may end this step at any of them.
void WriteCall(const CCrashPlace& place)
{
    CFixedText line(g_sText, c_uTextSize);
    line.Add("  ");
    AddCrashPlace(line, place);
    WriteReport(line.Add("\r\n"));
}

void Step_Stack()
{
    CFixedText title(g_sText, c_uTextSize);
    WriteReport(title.Add("\r\nCalls, the innermost first:\r\n"));
    WalkCrashStack(g_crash.context, WriteCall);
}

void Step_Dump()
{
    const HANDLE hDump = CreateCrashFile(c_sCrashDumpEnding);
    const DWORD dwError = hDump == INVALID_HANDLE_VALUE
                              ? GetLastError()
                              : WriteCrashDump(hDump, g_dwCrashedThread.load(), &g_crash.pointers);
    if (hDump != INVALID_HANDLE_VALUE)
        CloseHandle(hDump);
    CFixedText line(g_sText, c_uTextSize);
    line.Add("\r\nMinidump:  ");
    if (dwError == ERROR_SUCCESS)
        line.Add(g_crash.stem).Add(c_sCrashDumpEnding);
    else
        line.Add("none, error ").AddNumber(dwError);
    WriteReport(line.Add("\r\nNothing of this was sent anywhere.\r\n"));
    if (dwError != ERROR_SUCCESS && hDump != INVALID_HANDLE_VALUE && MakePath(c_sCrashDumpEnding))
        DeleteFileW(g_sPath);
}

std::vector<std::wstring> ListFiles(const std::wstring& sFolder)
{
    std::vector<std::wstring> names;
    WIN32_FIND_DATAW found{};
    const HANDLE hFind = FindFirstFileW((sFolder + L"*").c_str(), &found);
    if (hFind == INVALID_HANDLE_VALUE)
        return names;
    do
    {
        if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0)
            names.emplace_back(found.cFileName);
    } while (FindNextFileW(hFind, &found));
    FindClose(hFind);
    return names;
}

void Step_DeleteOld()
{
    const CCrashReportSettings& settings = *g_pSettings.load();
    for (const std::wstring& sName : ChooseCrashFilesToDelete(
             ListFiles(settings.folder), WideFromUtf8(settings.program), WideFromUtf8(g_crash.stem)))
        DeleteFileW((settings.folder + sName).c_str());
}

void Step_DebugOutput()
{
    WriteDebugText(nullptr, L"Unhandled exception: " + WideFromUtf8(g_crash.error) + L"\n");
}

void Step_TellUser()
{
    const CCrashReportSettings& settings = *g_pSettings.load();
    std::wstring sText =
        WideFromUtf8(settings.program) + L" has to end because of an error:\n" + WideFromUtf8(g_crash.error) + L"\n\n";
    if (g_crash.report != INVALID_HANDLE_VALUE)
        sText += L"What is known about it was written to\n" + settings.folder +
                 WideFromUtf8(g_crash.stem + std::string(c_sCrashReportEnding)) + L"\n\nNothing was sent anywhere.";
    else
        sText += L"No report could be written to\n" + settings.folder + L"\n(system error " +
                 std::to_wstring(g_crash.openError) + L").";
    ShowSystemMessage(sText);
}

// Where the first step hangs, the others would too: the crash holds a lock that they all need.
void WriteFiles()
{
    if (RunCrashStage(Step_Report, c_dwPatience) == EnumStageEnd::TimedOut)
        return;
    RunCrashStage(Step_DebugOutput, c_dwPatience);
    if (g_crash.report == INVALID_HANDLE_VALUE)
        return;
    RunCrashStage(Step_Stack, c_dwPatience);
    RunCrashStage(Step_Dump, c_dwDumpPatience);
    RunCrashStage(Step_DeleteOld, c_dwPatience);
}

[[noreturn]] void EndProcess(UINT uExitCode)
{
    TerminateProcess(GetCurrentProcess(), uExitCode);
    for (;;)
        Sleep(INFINITE);
}

// One crash is reported per process. What crashes after it, or because of it, waits for the end or brings it about.
void TakeCrash()
{
    const DWORD dwThread = GetCurrentThreadId();
    EndFaultedCrashStage();
    DWORD dwNobody = 0;
    if (g_dwCrashedThread.compare_exchange_strong(dwNobody, dwThread))
        return;
    if (g_dwCrashedThread.load() == dwThread)
        EndProcess(c_uExceptionExitCode);
    for (;;)
        Sleep(INFINITE);
}

// An exception leaves no context of its own: this place, inside std::terminate, has the throwing calls above it.
void CopyCrash(const CUnhandledError& error)
{
    const auto* pPointers = static_cast<const EXCEPTION_POINTERS*>(error.fault);
    if (pPointers != nullptr)
    {
        g_crash.record = *pPointers->ExceptionRecord;
        g_crash.context = *pPointers->ContextRecord;
    }
    else
    {
        RtlCaptureContext(&g_crash.context);
        g_crash.record.ExceptionCode = c_dwExceptionCode;
        g_crash.record.ExceptionAddress = reinterpret_cast<void*>(g_crash.context.Rip);
    }
    g_crash.exception = error.exception;
    g_crash.pointers = {&g_crash.record, &g_crash.context};
}

void OnUnhandledError(const CUnhandledError& error)
{
    TakeCrash();
    CopyCrash(error);
    WriteFiles();
    RunCrashStage_Window(Step_TellUser, c_dwPatience);
    EndProcess(error.exception != nullptr ? c_uExceptionExitCode : g_crash.record.ExceptionCode);
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
