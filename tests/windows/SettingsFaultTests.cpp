#include "app/CKinetarium.h"
#include "settings/SettingsFile.h"
#include "tests/windows/FaultTesting.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

// The settings file cannot be read or written. The program starts with the values that it can read, runs, and forgets
// the settings.

namespace
{
std::wstring g_sProgramPath; // the program's path as the replaced function reports it

// Replaces only the path of the program itself.
DWORD WINAPI TellOtherPath(HMODULE hModule, wchar_t* sBuffer, DWORD dwSize)
{
    if (hModule != nullptr || g_sProgramPath.size() >= dwSize)
    {
        return 0;
    }
    std::copy(g_sProgramPath.begin(), g_sProgramPath.end(), sBuffer);
    sBuffer[g_sProgramPath.size()] = L'\0';
    return static_cast<DWORD>(g_sProgramPath.size());
}

BOOL WINAPI RefuseWrite(const wchar_t*, const wchar_t*, const wchar_t*, const wchar_t*)
{
    SetLastError(ERROR_ACCESS_DENIED);
    return FALSE;
}

class SettingsFaults : public testing::Test
{
protected:
    static constexpr const char* c_sOldText = "[Settings]\r\nWorld_width=200\r\n";

    SettingsFaults() { Remove(); }
    ~SettingsFaults() override { Remove(); }

    static std::filesystem::path GetPath() { return CRunningApplication::GetSettingsPath(); }

    static void Remove()
    {
        SetFileAttributesW(GetPath().c_str(), FILE_ATTRIBUTE_NORMAL);
        std::error_code ignored;
        std::filesystem::remove_all(GetPath(), ignored);
    }

    static void WriteOldFile() { std::ofstream(GetPath(), std::ios::binary) << c_sOldText; }

    static std::string ReadFile()
    {
        std::ifstream file(GetPath(), std::ios::binary);
        std::ostringstream text;
        text << file.rdbuf();
        return text.str();
    }

    // Starts the program, checks the shown width, runs a simulation, and closes it, which saves the settings.
    static void ExpectUsableProgram(const std::wstring& sWidth)
    {
        CRunningApplication application(true);
        EXPECT_EQ(application.GetControlText(L"Width"), sWidth);
        application.SetControlText(L"Height", L"123");
        ExpectUsable(application);
        EXPECT_TRUE(application.Close());
    }
};
} // namespace

// Under Wine, an administrator may be able to write to a read-only file.
TEST_F(SettingsFaults, AReadOnlyFileIsReadAndNotChangedAndTheProgramRuns)
{
    WriteOldFile();
    SetFileAttributesW(GetPath().c_str(), FILE_ATTRIBUTE_READONLY);
    const HANDLE hFile = CreateFileW(GetPath().c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    const bool bMayWrite = hFile != INVALID_HANDLE_VALUE;
    if (bMayWrite)
    {
        CloseHandle(hFile);
    }
    ExpectUsableProgram(L"200");
    EXPECT_EQ(ReadFile() == c_sOldText, !bMayWrite);
}

TEST_F(SettingsFaults, AFileThatAnotherProgramHasLockedIsNotChanged)
{
    WriteOldFile();
    const HANDLE hLock =
        CreateFileW(GetPath().c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(hLock, INVALID_HANDLE_VALUE);
    ExpectUsableProgram(L"512");
    CloseHandle(hLock);
    EXPECT_EQ(ReadFile(), c_sOldText);
    // The next run writes the file, because it is no longer locked.
    ExpectUsableProgram(L"200");
    EXPECT_EQ(CRunningApplication::ReadSetting(L"World_height"), L"123");
}

TEST_F(SettingsFaults, AFolderInTheFilesPlaceStaysAFolder)
{
    std::filesystem::create_directory(GetPath());
    ExpectUsableProgram(L"512");
    EXPECT_TRUE(std::filesystem::is_directory(GetPath()));
    EXPECT_TRUE(std::filesystem::is_empty(GetPath()));
}

TEST_F(SettingsFaults, AMissingDriveFolderOrPathGivesTheDefaults)
{
    const CReplacedImport telling("GetModuleFileNameW", TellOtherPath);
    const std::wstring sFolder = GetPath().parent_path() / "vanished folder";
    for (const std::wstring& sProgram : {std::wstring(L"Q:\\Kinetarium.exe"), sFolder + L"\\Kinetarium.exe",
                                         std::wstring(L"Kinetarium.exe"), std::wstring()})
    {
        g_sProgramPath = sProgram;
        ExpectUsableProgram(L"512");
        const CRunningApplication application(true);
        application.Do([&](CKinetarium& inside) {
            const bool bHasFolder = sProgram.find(L'\\') != std::wstring::npos;
            EXPECT_EQ(CKinetariumProbe::GetIniPath(inside).IsEmpty(), !bHasFolder);
        });
    }
    EXPECT_FALSE(std::filesystem::exists(sFolder));
}

TEST_F(SettingsFaults, IfEveryWriteFailsTheProgramRunsAndForgetsTheSettings)
{
    WriteOldFile();
    {
        const CReplacedImport refusing("WritePrivateProfileStringW", RefuseWrite);
        ExpectUsableProgram(L"200");
    }
    EXPECT_EQ(ReadFile(), c_sOldText);
}
