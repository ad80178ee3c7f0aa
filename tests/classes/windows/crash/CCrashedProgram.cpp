#include "tests/classes/windows/crash/CCrashedProgram.h"

#include "tests/classes/windows/crash/CloseSystemMessage.h"

#include <algorithm>
#include <atomic>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace
{
constexpr DWORD c_dwPatience = 100000; // ms, far longer than the report's own time limits
std::filesystem::path GetOwnFolder()
{
    wchar_t sPath[MAX_PATH] = L"";
    GetModuleFileNameW(nullptr, sPath, MAX_PATH);
    return std::filesystem::path(sPath).parent_path();
}
} // namespace

CCrashedProgram::CCrashedProgram(const std::filesystem::path& folder, const std::wstring& sHow)
{
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    const std::filesystem::path program = GetOwnFolder() / "kinetarium-crashing.exe";
    // A single backslash before the closing quotation mark would escape it, so the backslash is doubled.
    std::wstring sCommand = L"\"" + program.wstring() + L"\" \"" + folder.wstring() + L"\\\\\" " + sHow;
    if (!CreateProcessW(program.c_str(), sCommand.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                        &process))
    {
        throw std::runtime_error("kinetarium-crashing does not start");
    }
    CloseHandle(process.hThread);
    m_hProcess = process.hProcess;
}

CCrashedProgram::~CCrashedProgram()
{
    if (WaitForSingleObject(m_hProcess, 0) == WAIT_TIMEOUT)
    {
        TerminateProcess(m_hProcess, 1);
    }
    CloseHandle(m_hProcess);
}

std::wstring CCrashedProgram::CloseMessage() const
{
    return CloseSystemMessage(m_hProcess);
}

DWORD CCrashedProgram::WaitForExit() const
{
    DWORD dwCode = 0;
    if (WaitForSingleObject(m_hProcess, c_dwPatience) == WAIT_OBJECT_0)
    {
        GetExitCodeProcess(m_hProcess, &dwCode);
    }
    return dwCode;
}

CEmptyFolder::CEmptyFolder()
{
    static std::atomic<int> s_iFolder{0};
    const std::string sName =
        "kinetarium-crash-" + std::to_string(GetCurrentProcessId()) + "-" + std::to_string(++s_iFolder);
    m_path = std::filesystem::temp_directory_path() / sName;
    std::filesystem::remove_all(m_path);
    std::filesystem::create_directories(m_path);
}

CEmptyFolder::~CEmptyFolder()
{
    std::error_code ignored; // files that cannot be deleted stay in the temporary folder
    std::filesystem::remove_all(m_path, ignored);
}

std::vector<std::string> CEmptyFolder::List(const std::string& sEnding) const
{
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(m_path))
    {
        if (sEnding.empty() || entry.path().extension() == sEnding)
        {
            names.push_back(entry.path().filename().string());
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::string CEmptyFolder::Read(const std::string& sName) const
{
    std::ifstream file(m_path / sName, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

void CEmptyFolder::Write(const std::string& sName, const std::string& sText) const
{
    std::ofstream(m_path / sName, std::ios::binary) << sText;
}
