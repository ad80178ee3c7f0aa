#pragma once

#include <windows.h>

#include <filesystem>
#include <string>

// Makes Wine report a certain version of Windows to the program of this file name; Wine 8 reports Windows 7 by default.
// On Windows this has no effect.
class CClaimedWindows
{
public:
    CClaimedWindows(const std::filesystem::path& program, const std::wstring& sVersion)
        : m_sKey(L"Software\\Wine\\AppDefaults\\" + program.filename().wstring())
    {
        RegSetKeyValueW(HKEY_CURRENT_USER, m_sKey.c_str(), L"Version", REG_SZ, sVersion.c_str(),
                        static_cast<DWORD>((sVersion.size() + 1) * sizeof(wchar_t)));
    }
    ~CClaimedWindows() { RegDeleteTreeW(HKEY_CURRENT_USER, m_sKey.c_str()); }
    CClaimedWindows(const CClaimedWindows&) = delete;
    CClaimedWindows& operator=(const CClaimedWindows&) = delete;

private:
    const std::wstring m_sKey;
};
