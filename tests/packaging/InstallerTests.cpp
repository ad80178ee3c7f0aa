#include "tests/endtoend/CDrivenProgram.h"
#include "tests/endtoend/CKinetariumUser.h"
#include "tests/endtoend/WaitUntil.h"
#include "tests/packaging/CInstallation.h"
#include "tests/packaging/HandedOut.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <set>
#include <string>
#include <system_error>

namespace
{
constexpr auto c_patience = std::chrono::milliseconds(20000);
constexpr DWORD c_uOldWindows = 3; // exit codes of the installer
constexpr DWORD c_uRunning = 4;

using Names = std::set<std::string>;

// The paths of all files below a folder; empty if the folder changes meanwhile.
std::optional<Names> TryFilesIn(const std::filesystem::path& folder)
{
    Names names;
    std::error_code error;
    for (std::filesystem::recursive_directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error))
    {
        if (!entry->is_directory(error) && !error)
        {
            names.insert(entry->path().lexically_relative(folder).generic_string());
        }
    }
    return error ? std::nullopt : std::optional(names);
}

// The paths of all files below a folder; none if there is no such folder. The uninstaller may still be removing the
// last empty folders when the system no longer lists the program.
Names FilesIn(const std::filesystem::path& folder)
{
    std::optional<Names> names;
    WaitUntil("the folder to be at rest", c_patience, [&] {
        names = std::filesystem::exists(folder) ? TryFilesIn(folder) : Names{};
        return names.has_value();
    });
    return *names;
}

// The count of files and folders directly in a folder.
std::ptrdiff_t CountEntries(const std::filesystem::path& folder)
{
    std::error_code error;
    std::ptrdiff_t iCount = 0;
    for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error))
    {
        ++iCount;
    }
    return error ? -1 : iCount;
}

std::string ReadFile(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

void WriteFile(const std::filesystem::path& file, const std::string& sText)
{
    std::ofstream(file, std::ios::binary) << sText;
}

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

// A user's account without Kinetarium, before and after the test.
class Installer : public testing::Test
{
protected:
    Installer()
    {
        const std::string sName = "kinetarium installed " + std::to_string(GetCurrentProcessId());
        m_place = std::filesystem::temp_directory_path() / sName;
        Clear();
    }
    ~Installer() override { Clear(); }

    // Removes the rest of a failed test, without the uninstaller under test.
    void Clear() const
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_place, ignored);
        std::filesystem::remove_all(DefaultPlace(), ignored);
        std::filesystem::remove(StartMenuEntry(), ignored);
        std::filesystem::remove(DesktopEntry(), ignored);
        RemoveFromList();
    }

    // Installs silently; the folder comes last and without quotes, whatever blanks it has.
    DWORD Install(const std::filesystem::path& installer) const
    {
        return RunToEnd(installer, L"/S /D=" + m_place.wstring());
    }

    Names HandedOut() const
    {
        Names names = FilesIn(HandedOutFolder());
        names.insert("Uninstall.exe");
        return names;
    }

    const CClaimedWindows m_windows{BuiltInstaller(), L"win10"};
    const CClaimedWindows m_windowsOfEarlier{BuiltEarlierInstaller(), L"win10"};
    std::filesystem::path m_place;
};
} // namespace

TEST_F(Installer, PutsTheProgramInItsPlaceAndIntoTheStartMenuAndTheListOfInstalledPrograms)
{
    ASSERT_EQ(Install(BuiltInstaller()), 0U);
    EXPECT_EQ(FilesIn(m_place), HandedOut());
    EXPECT_EQ(ReadFile(m_place / "Kinetarium.exe"), ReadFile(HandedOutFolder() / "Kinetarium.exe"));
    EXPECT_TRUE(std::filesystem::equivalent(TargetOf(StartMenuEntry()), m_place / "Kinetarium.exe"));
    EXPECT_FALSE(std::filesystem::exists(DesktopEntry()));

    const std::wstring sPlace = m_place.wstring();
    EXPECT_EQ(ReadListedText(L"DisplayName"), L"Kinetarium");
    EXPECT_EQ(ReadListedText(L"DisplayVersion"), L"" KINETARIUM_VERSION);
    EXPECT_EQ(ReadListedText(L"Publisher"), L"Kinetarium");
    EXPECT_EQ(ReadListedText(L"DisplayIcon"), sPlace + L"\\Kinetarium.exe,0");
    EXPECT_EQ(ReadListedText(L"InstallLocation"), sPlace);
    EXPECT_EQ(ReadListedText(L"UninstallString"), L"\"" + sPlace + L"\\Uninstall.exe\"");
    EXPECT_EQ(ReadListedText(L"QuietUninstallString"), L"\"" + sPlace + L"\\Uninstall.exe\" /S");
    EXPECT_EQ(ReadListedNumber(L"NoModify"), 1U);
    EXPECT_EQ(ReadListedNumber(L"NoRepair"), 1U);
    // In units of 1024 bytes, for all files but the uninstaller.
    std::uintmax_t uBytes = 0;
    for (const std::string& sFile : FilesIn(HandedOutFolder()))
    {
        uBytes += std::filesystem::file_size(HandedOutFolder() / sFile);
    }
    constexpr std::uintmax_t c_uUnit = 1024;
    EXPECT_EQ(ReadListedNumber(L"EstimatedSize"), (uBytes + c_uUnit - 1) / c_uUnit);
}

TEST_F(Installer, InstallsForTheUserAloneUnlessToldOtherwise)
{
    ASSERT_EQ(RunToEnd(BuiltInstaller(), L"/S"), 0U);
    EXPECT_EQ(FilesIn(DefaultPlace()), HandedOut());
    UninstallAsListed();
    WaitUntil("the folder to go", c_patience, [] { return !std::filesystem::exists(DefaultPlace()); });
}

TEST_F(Installer, WhatItInstalledRunsForItsUserAndUninstallingLeavesNothingButTheSettings)
{
    ASSERT_EQ(Install(BuiltInstaller()), 0U);
    {
        const CDrivenProgram program(m_place / "Kinetarium.exe");
        const CKinetariumUser user(program);
        user.PressStart();
        user.WaitForStatistics(0);
        user.PressStop();
        user.Close();
        ASSERT_EQ(program.WaitForExit(c_patience), 0U);
    }
    const std::string sSettings = ReadFile(m_place / "Kinetarium.ini");
    EXPECT_NE(sSettings.find("World_width=512"), std::string::npos);
    WriteFile(m_place / "Kinetarium-crash-20260101-120000.txt", "a report");
    WriteFile(m_place / "Kinetarium-crash-20260101-120000.dmp", "its memory");

    UninstallAsListed();
    EXPECT_EQ(FilesIn(m_place), Names{"Kinetarium.ini"});
    EXPECT_EQ(ReadFile(m_place / "Kinetarium.ini"), sSettings);
    WaitUntil("the folders to go", c_patience, [&] { return CountEntries(m_place) == 1; });
    EXPECT_FALSE(IsListed());
    EXPECT_FALSE(std::filesystem::exists(StartMenuEntry()));
}

TEST_F(Installer, UninstallingLeavesWhatTheUserPutIntoTheFolder)
{
    ASSERT_EQ(Install(BuiltInstaller()), 0U);
    WriteFile(m_place / "notes.txt", "mine");
    WriteFile(m_place / "guide" / "notes.txt", "mine too");
    UninstallAsListed();
    EXPECT_EQ(FilesIn(m_place), (Names{"notes.txt", "guide/notes.txt"}));
}

TEST_F(Installer, UninstallingWithoutSettingsLeavesNoFolder)
{
    ASSERT_EQ(Install(BuiltInstaller()), 0U);
    UninstallAsListed();
    WaitUntil("the folder to go", c_patience, [&] { return !std::filesystem::exists(m_place); });
}

TEST_F(Installer, AnUpdateReplacesTheEarlierVersionAndKeepsSettingsReportsAndTheDesktopEntry)
{
    ASSERT_EQ(Install(BuiltEarlierInstaller()), 0U);
    ASSERT_EQ(ReadListedText(L"DisplayVersion"), L"1.9.0");
    ASSERT_TRUE(std::filesystem::exists(m_place / "guide" / "earlier.html"));
    const std::string sSettings = "[Settings]\r\nTot_atoms=777\r\n";
    WriteFile(m_place / "Kinetarium.ini", sSettings);
    WriteFile(m_place / "Kinetarium-crash-20260101-120000.txt", "a report");
    std::filesystem::copy_file(StartMenuEntry(), DesktopEntry());

    // Without /D the installer chooses the folder of the earlier version.
    ASSERT_EQ(RunToEnd(BuiltInstaller(), L"/S"), 0U);
    EXPECT_EQ(ReadListedText(L"DisplayVersion"), L"" KINETARIUM_VERSION);
    Names expected = HandedOut();
    expected.insert("Kinetarium.ini");
    expected.insert("Kinetarium-crash-20260101-120000.txt");
    EXPECT_EQ(FilesIn(m_place), expected);
    EXPECT_EQ(ReadFile(m_place / "Kinetarium.ini"), sSettings);
    EXPECT_EQ(ReadFile(m_place / "Kinetarium.exe"), ReadFile(HandedOutFolder() / "Kinetarium.exe"));
    EXPECT_TRUE(std::filesystem::exists(DesktopEntry()));
    UninstallAsListed();
    EXPECT_FALSE(std::filesystem::exists(DesktopEntry()));
}

TEST_F(Installer, InstallingTheSameVersionAgainMendsIt)
{
    ASSERT_EQ(Install(BuiltInstaller()), 0U);
    std::filesystem::remove(m_place / "README.txt");
    WriteFile(m_place / "Kinetarium.exe", "broken");
    ASSERT_EQ(Install(BuiltInstaller()), 0U);
    EXPECT_EQ(FilesIn(m_place), HandedOut());
    EXPECT_EQ(ReadFile(m_place / "Kinetarium.exe"), ReadFile(HandedOutFolder() / "Kinetarium.exe"));
}

TEST_F(Installer, AnUpdateToAnotherFolderTakesTheSettingsAlong)
{
    ASSERT_EQ(RunToEnd(BuiltEarlierInstaller(), L"/S"), 0U);
    WriteFile(DefaultPlace() / "Kinetarium.ini", "[Settings]\r\nTot_atoms=777\r\n");
    ASSERT_EQ(Install(BuiltInstaller()), 0U);
    EXPECT_FALSE(std::filesystem::exists(DefaultPlace()));
    EXPECT_EQ(ReadFile(m_place / "Kinetarium.ini"), "[Settings]\r\nTot_atoms=777\r\n");
    EXPECT_EQ(ReadListedText(L"InstallLocation"), m_place.wstring());
    EXPECT_TRUE(std::filesystem::equivalent(TargetOf(StartMenuEntry()), m_place / "Kinetarium.exe"));
}

// A silent installer cannot ask the user to close the program.
TEST_F(Installer, WhileTheProgramRunsNothingIsReplacedOrRemoved)
{
    ASSERT_EQ(Install(BuiltInstaller()), 0U);
    const CDrivenProgram program(m_place / "Kinetarium.exe");
    const CKinetariumUser user(program);
    EXPECT_EQ(Install(BuiltInstaller()), c_uRunning);
    // With this argument the uninstaller does not copy itself, so the test can wait for it.
    EXPECT_EQ(RunToEnd(m_place / "Uninstall.exe", L"/S _?=" + m_place.wstring()), c_uRunning);
    EXPECT_EQ(FilesIn(m_place), HandedOut());
    EXPECT_TRUE(IsListed());
    user.Close();
    EXPECT_EQ(program.WaitForExit(c_patience), 0U);
    EXPECT_EQ(Install(BuiltInstaller()), 0U);
}

TEST_F(Installer, RefusesAWindowsThatIsTooOld)
{
    std::filesystem::create_directories(m_place);
    const std::filesystem::path copy = m_place / "kinetarium-on-windows-8.exe";
    std::filesystem::copy_file(BuiltInstaller(), copy);
    const CClaimedWindows windows(copy, L"win81");
    EXPECT_EQ(RunToEnd(copy, L"/S"), c_uOldWindows);
    EXPECT_FALSE(IsListed());
    EXPECT_FALSE(std::filesystem::exists(DefaultPlace()));
}
