#include "tests/packaging/CInstallation.h"

#include "tests/endtoend/WaitUntil.h"
#include "tests/packaging/FolderContents.h"

#include <shlobj.h>

#include <array>
#include <chrono>
#include <stdexcept>
#include <system_error>

namespace
{
constexpr wchar_t c_sListed[] = L"Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\Kinetarium";
constexpr DWORD c_uRunPatience = 60000; // milliseconds
constexpr auto c_uninstallPatience = std::chrono::milliseconds(30000);

void Require(bool bDone, const std::string& sWhat)
{
    if (!bDone)
    {
        const auto iError = static_cast<int>(GetLastError());
        throw std::runtime_error(sWhat + ": " + std::system_category().message(iError));
    }
}

std::filesystem::path UserFolder(REFKNOWNFOLDERID folder)
{
    wchar_t* sPath = nullptr;
    const HRESULT hResult = SHGetKnownFolderPath(folder, KF_FLAG_CREATE, nullptr, &sPath);
    std::filesystem::path path(SUCCEEDED(hResult) ? sPath : L"");
    CoTaskMemFree(sPath);
    Require(!path.empty(), "one of the user's folders is missing");
    return path;
}
} // namespace

CStartedProgram::CStartedProgram(const std::filesystem::path& program, const std::wstring& sArguments, HANDLE hOutput)
{
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    if (hOutput != nullptr)
    {
        startup.dwFlags = STARTF_USESTDHANDLES;
        startup.hStdOutput = hOutput;
        startup.hStdError = hOutput;
    }
    PROCESS_INFORMATION process{};
    std::wstring sCommandLine = L"\"" + program.wstring() + L"\" " + sArguments;
    Require(CreateProcessW(program.c_str(), sCommandLine.data(), nullptr, nullptr, hOutput != nullptr ? TRUE : FALSE, 0,
                           nullptr, nullptr, &startup, &process) != FALSE,
            "cannot start " + program.string());
    CloseHandle(process.hThread);
    m_hProcess = process.hProcess;
    m_uProcessId = process.dwProcessId;
}

CStartedProgram::~CStartedProgram()
{
    Kill();
    CloseHandle(m_hProcess);
}

bool CStartedProgram::HasEnded(DWORD uPatience) const
{
    return WaitForSingleObject(m_hProcess, uPatience) == WAIT_OBJECT_0;
}

DWORD CStartedProgram::GetExitCode() const
{
    DWORD uExitCode = 0;
    GetExitCodeProcess(m_hProcess, &uExitCode);
    return uExitCode;
}

void CStartedProgram::Kill() const
{
    TerminateProcess(m_hProcess, 1);
    WaitForSingleObject(m_hProcess, c_uRunPatience);
}

namespace
{
DWORD WaitForEnd(const CStartedProgram& program, const std::filesystem::path& file)
{
    if (!program.HasEnded(c_uRunPatience))
    {
        throw std::runtime_error(file.string() + " does not end");
    }
    return program.GetExitCode();
}
} // namespace

DWORD RunToEnd(const std::filesystem::path& program, const std::wstring& sArguments)
{
    return WaitForEnd(CStartedProgram(program, sArguments), program);
}

DWORD RunToEnd(const std::filesystem::path& program, const std::wstring& sArguments, std::string& sOutput)
{
    const std::filesystem::path file =
        std::filesystem::temp_directory_path() / ("kinetarium output " + std::to_string(GetCurrentProcessId()));
    SECURITY_ATTRIBUTES inheritable{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    const HANDLE hFile = CreateFileW(file.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inheritable, CREATE_ALWAYS,
                                     FILE_ATTRIBUTE_NORMAL, nullptr);
    Require(hFile != INVALID_HANDLE_VALUE, "cannot write " + file.string());
    const DWORD uExitCode = WaitForEnd(CStartedProgram(program, sArguments, hFile), program);
    CloseHandle(hFile);
    sOutput = ReadFile(file);
    std::filesystem::remove(file);
    return uExitCode;
}

bool IsListed()
{
    HKEY hKey = nullptr;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, c_sListed, 0, KEY_READ, &hKey) != ERROR_SUCCESS)
    {
        return false;
    }
    RegCloseKey(hKey);
    return true;
}

std::optional<std::wstring> ReadListedText(const std::wstring& sName)
{
    std::array<wchar_t, MAX_PATH + 2> text{}; // a path, perhaps in quotes
    DWORD uBytes = sizeof(text);
    if (RegGetValueW(HKEY_CURRENT_USER, c_sListed, sName.c_str(), RRF_RT_REG_SZ, nullptr, text.data(), &uBytes) !=
        ERROR_SUCCESS)
    {
        return std::nullopt;
    }
    return text.data();
}

std::optional<DWORD> ReadListedNumber(const std::wstring& sName)
{
    DWORD uNumber = 0;
    DWORD uBytes = sizeof(uNumber);
    if (RegGetValueW(HKEY_CURRENT_USER, c_sListed, sName.c_str(), RRF_RT_REG_DWORD, nullptr, &uNumber, &uBytes) !=
        ERROR_SUCCESS)
    {
        return std::nullopt;
    }
    return uNumber;
}

void RemoveFromList()
{
    RegDeleteTreeW(HKEY_CURRENT_USER, c_sListed);
}

std::filesystem::path StartMenuEntry()
{
    return UserFolder(FOLDERID_Programs) / "Kinetarium.lnk";
}

std::filesystem::path DesktopEntry()
{
    return UserFolder(FOLDERID_Desktop) / "Kinetarium.lnk";
}

std::filesystem::path DefaultPlace()
{
    return UserFolder(FOLDERID_LocalAppData) / "Programs" / "Kinetarium";
}

std::filesystem::path TargetOf(const std::filesystem::path& shortcut)
{
    IShellLinkW* pLink = nullptr;
    IPersistFile* pFile = nullptr;
    std::array<wchar_t, MAX_PATH> target{};
    CoInitialize(nullptr);
    const bool bRead = SUCCEEDED(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW,
                                                  reinterpret_cast<void**>(&pLink))) &&
                       SUCCEEDED(pLink->QueryInterface(IID_IPersistFile, reinterpret_cast<void**>(&pFile))) &&
                       SUCCEEDED(pFile->Load(shortcut.c_str(), STGM_READ)) &&
                       SUCCEEDED(pLink->GetPath(target.data(), MAX_PATH, nullptr, SLGP_RAWPATH));
    if (pFile != nullptr)
    {
        pFile->Release();
    }
    if (pLink != nullptr)
    {
        pLink->Release();
    }
    CoUninitialize();
    Require(bRead, "cannot read the shortcut " + shortcut.string());
    return target.data();
}

void MakeShortcut(const std::filesystem::path& shortcut, const std::filesystem::path& target)
{
    IShellLinkW* pLink = nullptr;
    IPersistFile* pFile = nullptr;
    CoInitialize(nullptr);
    const bool bMade = SUCCEEDED(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW,
                                                  reinterpret_cast<void**>(&pLink))) &&
                       SUCCEEDED(pLink->SetPath(target.c_str())) &&
                       SUCCEEDED(pLink->QueryInterface(IID_IPersistFile, reinterpret_cast<void**>(&pFile))) &&
                       SUCCEEDED(pFile->Save(shortcut.c_str(), TRUE));
    if (pFile != nullptr)
    {
        pFile->Release();
    }
    if (pLink != nullptr)
    {
        pLink->Release();
    }
    CoUninitialize();
    Require(bMade, "cannot make the shortcut " + shortcut.string());
}

void UninstallAsListed()
{
    const auto sCommand = ReadListedText(L"QuietUninstallString");
    const auto sPlace = ReadListedText(L"InstallLocation");
    if (!sCommand || !sPlace)
    {
        throw std::runtime_error("there is nothing to uninstall");
    }
    // The command is a program in quotes and its arguments.
    const std::size_t uQuote = sCommand->find(L'"', 1);
    RunToEnd(sCommand->substr(1, uQuote - 1), sCommand->substr(uQuote + 1));
    WaitUntil("the uninstaller", c_uninstallPatience, [&] {
        return !IsListed() && !std::filesystem::exists(std::filesystem::path(*sPlace) / "installed-files.ini");
    });
}
