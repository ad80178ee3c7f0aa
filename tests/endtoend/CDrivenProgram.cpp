#include "tests/endtoend/CDrivenProgram.h"

#include <tlhelp32.h>

#include <algorithm>
#include <atomic>
#include <cwctype>
#include <stdexcept>
#include <system_error>

namespace
{
constexpr UINT c_uTerminatedExitCode = 99; // distinguishes a terminated program from one that failed by itself
constexpr DWORD c_uTerminateMilliseconds = 5000;

std::string SystemError(const std::string& sWhat)
{
    const auto iError = static_cast<int>(GetLastError());
    return sWhat + ": " + std::system_category().message(iError) + " (" + std::to_string(iError) + ")";
}

std::wstring ToLower(std::wstring sText)
{
    std::transform(sText.begin(), sText.end(), sText.begin(),
                   [](wchar_t c) { return static_cast<wchar_t>(std::towlower(c)); });
    return sText;
}
} // namespace

CDrivenProgram::CDrivenProgram(const std::filesystem::path& program)
{
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION process{};
    std::wstring sCommandLine = L"\"" + program.wstring() + L"\"";
    const std::wstring sFolder = program.parent_path().wstring();
    if (CreateProcessW(program.c_str(), sCommandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, sFolder.c_str(),
                       &startup, &process) == FALSE)
    {
        throw std::runtime_error(SystemError("cannot start " + program.string()));
    }
    CloseHandle(process.hThread);
    m_hProcess = process.hProcess;
    m_uProcessId = process.dwProcessId;
}

CDrivenProgram::~CDrivenProgram()
{
    if (IsRunning())
    {
        TerminateProcess(m_hProcess, c_uTerminatedExitCode);
        WaitForSingleObject(m_hProcess, c_uTerminateMilliseconds);
    }
    CloseHandle(m_hProcess);
}

bool CDrivenProgram::IsRunning() const
{
    return WaitForSingleObject(m_hProcess, 0) == WAIT_TIMEOUT;
}

DWORD CDrivenProgram::WaitForExit(std::chrono::milliseconds patience) const
{
    if (WaitForSingleObject(m_hProcess, static_cast<DWORD>(patience.count())) != WAIT_OBJECT_0)
    {
        throw std::runtime_error("the program has not ended within " + std::to_string(patience.count()) + " ms");
    }
    DWORD uExitCode = 0;
    if (GetExitCodeProcess(m_hProcess, &uExitCode) == FALSE)
    {
        throw std::runtime_error(SystemError("no exit code"));
    }
    return uExitCode;
}

CProcessCounts CDrivenProgram::Count() const
{
    return {CountThreads(m_uProcessId), CountHandles(m_uProcessId), CountGdiObjects(m_hProcess),
            CountUserObjects(m_hProcess)};
}

bool CDrivenProgram::HasModuleFrom(const std::wstring& sFile, const std::wstring& sFolder) const
{
    const HANDLE hSnapshot = CreateToolhelp32Snapshot(TH32CS_SNAPMODULE, m_uProcessId);
    if (hSnapshot == INVALID_HANDLE_VALUE)
    {
        throw std::runtime_error(SystemError("no list of modules"));
    }
    bool bFound = false;
    MODULEENTRY32W entry{};
    entry.dwSize = sizeof(entry);
    for (BOOL bMore = Module32FirstW(hSnapshot, &entry); bMore != FALSE; bMore = Module32NextW(hSnapshot, &entry))
    {
        bFound = bFound ||
                 (ToLower(entry.szModule) == sFile && ToLower(entry.szExePath).find(sFolder) != std::wstring::npos);
    }
    CloseHandle(hSnapshot);
    return bFound;
}

CProgramCopy::CProgramCopy(const std::filesystem::path& program)
{
    static std::atomic<int> s_iCopy{0};
    const std::string sName = "kinetarium-" + std::to_string(GetCurrentProcessId()) + "-" + std::to_string(++s_iCopy);
    m_folder = std::filesystem::temp_directory_path() / sName;
    std::filesystem::remove_all(m_folder);
    std::filesystem::create_directories(m_folder);
    m_program = m_folder / program.filename();
    std::filesystem::copy_file(program, m_program);
}

CProgramCopy::~CProgramCopy()
{
    std::error_code ignored; // files that cannot be deleted stay in the temporary folder
    std::filesystem::remove_all(m_folder, ignored);
}
