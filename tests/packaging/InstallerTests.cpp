#include "tests/endtoend/CDrivenProgram.h"
#include "tests/endtoend/CKinetariumUser.h"
#include "tests/endtoend/WaitUntil.h"
#include "tests/packaging/CInstallation.h"
#include "tests/packaging/CInstallerTest.h"
#include "tests/packaging/FolderContents.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <string>

using Installer = CInstallerTest;

TEST_F(Installer, PutsTheProgramInItsPlaceAndIntoTheStartMenuAndTheListOfInstalledPrograms)
{
    ASSERT_EQ(Install(BuiltInstaller()), 0U);
    EXPECT_EQ(FilesIn(m_place), InstalledFiles());
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
    EXPECT_EQ(FilesIn(DefaultPlace()), InstalledFiles());
    UninstallAsListed();
    WaitUntil("the folder to go", c_installerPatience, [] { return !std::filesystem::exists(DefaultPlace()); });
}

TEST_F(Installer, WhatItInstalledRunsForItsUserAndUninstallingLeavesNothingButWhatItWrote)
{
    ASSERT_EQ(Install(BuiltInstaller()), 0U);
    {
        const CDrivenProgram program(m_place / "Kinetarium.exe");
        const CKinetariumUser user(program);
        user.PressStart();
        user.WaitForStatistics(0);
        user.PressStop();
        user.Close();
        ASSERT_EQ(program.WaitForExit(c_installerPatience), 0U);
    }
    const std::string sSettings = ReadFile(m_place / "Kinetarium.ini");
    EXPECT_NE(sSettings.find("World_width=512"), std::string::npos);
    WriteFile(m_place / "Kinetarium-crash-20260101-120000.txt", "a report");
    WriteFile(m_place / "Kinetarium-crash-20260101-120000.dmp", "its memory");

    UninstallAsListed();
    EXPECT_EQ(FilesIn(m_place), (CFileNames{"Kinetarium.ini", "Kinetarium-crash-20260101-120000.txt",
                                            "Kinetarium-crash-20260101-120000.dmp"}));
    EXPECT_EQ(ReadFile(m_place / "Kinetarium.ini"), sSettings);
    WaitUntil("the folders to go", c_installerPatience, [&] { return CountEntries(m_place) == 3; });
    EXPECT_FALSE(IsListed());
    EXPECT_FALSE(std::filesystem::exists(StartMenuEntry()));
}

TEST_F(Installer, UninstallingWithoutSettingsLeavesNoFolder)
{
    ASSERT_EQ(Install(BuiltInstaller()), 0U);
    UninstallAsListed();
    WaitUntil("the folder to go", c_installerPatience, [&] { return !std::filesystem::exists(m_place); });
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
    CFileNames expected = InstalledFiles();
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
    CFileNames expected = InstalledFiles();
    expected.insert("Kinetarium.exe.kept"); // it is not for the installer to say that it is worthless
    EXPECT_EQ(FilesIn(m_place), expected);
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
