#include "classes/windows/crash/CrashSteps.h"

#include "classes/core/CKernelHandle.h"
#include "classes/core/CLibrarySettings.h"
#include "classes/core/CrashFiles.h"
#include "classes/core/CrashNote.h"
#include "classes/core/CrashText.h"
#include "classes/core/OutputDebugMessage.h"
#include "classes/core/SystemMessage.h"
#include "classes/core/Utf8.h"
#include "classes/windows/crash/CrashDump.h"
#include "classes/windows/crash/CrashFacts.h"
#include "classes/windows/crash/CrashStack.h"

#include <algorithm>
#include <vector>

namespace
{
constexpr std::size_t c_uPathSize = 32768; // characters, the longest path that the system knows
constexpr std::size_t c_uTextSize = 16384;

CCrash g_crash;
wchar_t g_sPath[c_uPathSize];
char g_sText[c_uTextSize];
} // namespace

CCrash& GetCrash() noexcept
{
    return g_crash;
}

namespace
{
// Puts folder, stem and ending into g_sPath; false if they do not fit.
bool MakePath(const char* sEnding)
{
    const std::wstring& sFolder = g_crash.settings->folder;
    char storage[c_uCrashLineSize];
    const CFixedText name = CFixedText(storage, sizeof storage).Add(g_crash.stem).Add(sEnding);
    if (sFolder.size() + name.GetLength() >= c_uPathSize)
    {
        return false;
    }
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

// Uses the first free name of this second.
void OpenReport(const CCrashTime& time)
{
    for (unsigned uAttempt = 1; uAttempt <= c_uCrashStemAttempts; ++uAttempt)
    {
        CFixedText stem(g_crash.stem, sizeof g_crash.stem);
        AddCrashStem(stem, GetLibrarySettings().sProgramName, time, uAttempt);
        g_crash.report = CreateCrashFile(c_sCrashReportEnding);
        g_crash.openError = g_crash.report == INVALID_HANDLE_VALUE ? GetLastError() : DWORD{ERROR_SUCCESS};
        if (g_crash.openError != ERROR_FILE_EXISTS)
        {
            return;
        }
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
    {
        fault.details[i] = g_crash.record.ExceptionInformation[i];
    }
    AddFault(error, fault);
}
} // namespace

void CrashStep_Report()
{
    const CCrashReportSettings& settings = *g_crash.settings;
    CCrashFacts facts;
    facts.time = GetCrashTime();
    DescribeError();
    OpenReport(facts.time);
    if (g_crash.report == INVALID_HANDLE_VALUE)
    {
        return;
    }

    char build[c_uCrashLineSize];
    char system[c_uCrashLineSize];
    char processor[c_uCrashLineSize];
    CFixedText buildText(build, sizeof build);
    CFixedText systemText(system, sizeof system);
    CFixedText processorText(processor, sizeof processor);
    AddImageChecksum(buildText.Add(settings.build.c_str()));
    AddSystemVersion(systemText);
    AddProcessor(processorText);
    GetCrashMemory(facts);
    facts.program = GetLibrarySettings().sProgramName;
    facts.version = settings.version.c_str();
    facts.build = build;
    facts.error = g_crash.error;
    facts.place = FindCrashPlace(reinterpret_cast<std::uint64_t>(g_crash.record.ExceptionAddress));
    facts.thread = g_crash.thread;
    facts.mainThread = g_crash.mainThread;
    facts.activity = GetCrashNote()[0] != '\0' ? GetCrashNote() : nullptr;
    facts.system = system;
    facts.processor = processor;

    CFixedText text(g_sText, c_uTextSize);
    AddCrashReport(text, facts);
    WriteReport(text);
    FlushFileBuffers(g_crash.report);
}

namespace
{
// Each line is written on its own: a broken stack may end this step at any of them.
void WriteCall(const CCrashPlace& place)
{
    CFixedText line(g_sText, c_uTextSize);
    line.Add("  ");
    AddCrashPlace(line, place);
    WriteReport(line.Add("\r\n"));
}
} // namespace

void CrashStep_Stack()
{
    CFixedText title(g_sText, c_uTextSize);
    WriteReport(title.Add("\r\nCalls, the innermost first:\r\n"));
    WalkCrashStack(g_crash.context, WriteCall);
}

void CrashStep_Dump()
{
    CKernelHandle dump(CreateCrashFile(c_sCrashDumpEnding));
    const bool bCreated = static_cast<bool>(dump);
    const DWORD dwError = bCreated ? WriteCrashDump(dump.Get(), g_crash.thread, &g_crash.pointers) : GetLastError();
    dump.Reset();
    CFixedText line(g_sText, c_uTextSize);
    line.Add("\r\nMinidump:  ");
    if (dwError == ERROR_SUCCESS)
    {
        line.Add(g_crash.stem).Add(c_sCrashDumpEnding);
    }
    else
    {
        line.Add("none, error ").AddNumber(dwError);
    }
    WriteReport(line.Add("\r\nNothing of this was sent anywhere.\r\n"));
    if (dwError != ERROR_SUCCESS && bCreated && MakePath(c_sCrashDumpEnding))
    {
        DeleteFileW(g_sPath);
    }
}

namespace
{
std::vector<std::wstring> ListFiles(const std::wstring& sFolder)
{
    std::vector<std::wstring> names;
    WIN32_FIND_DATAW found{};
    const HANDLE hFind = FindFirstFileW((sFolder + L"*").c_str(), &found);
    if (hFind == INVALID_HANDLE_VALUE)
    {
        return names;
    }
    do
    {
        if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0)
        {
            names.emplace_back(found.cFileName);
        }
    } while (FindNextFileW(hFind, &found));
    FindClose(hFind);
    return names;
}
} // namespace

void CrashStep_DeleteOld()
{
    const CCrashReportSettings& settings = *g_crash.settings;
    for (const std::wstring& sName : ChooseCrashFilesToDelete(
             ListFiles(settings.folder), WideFromUtf8(GetLibrarySettings().sProgramName), WideFromUtf8(g_crash.stem)))
    {
        DeleteFileW((settings.folder + sName).c_str());
    }
}

void CrashStep_DebugOutput()
{
    WriteDebugText(nullptr, L"Unhandled exception: " + WideFromUtf8(g_crash.error) + L"\n");
}

void CrashStep_TellUser()
{
    const CCrashReportSettings& settings = *g_crash.settings;
    std::wstring sText = WideFromUtf8(GetLibrarySettings().sProgramName) + L" has to end because of an error:\n" +
                         WideFromUtf8(g_crash.error) + L"\n\n";
    if (g_crash.report != INVALID_HANDLE_VALUE)
    {
        sText += L"What is known about it was written to\n" + settings.folder +
                 WideFromUtf8(g_crash.stem + std::string(c_sCrashReportEnding)) + L"\n\nNothing was sent anywhere.";
    }
    else
    {
        sText += L"No report could be written to\n" + settings.folder + L"\n(system error " +
                 std::to_wstring(g_crash.openError) + L").";
    }
    ShowSystemMessage(sText);
}
