#include "tests/endtoend/WaitUntil.h"
#include "tests/endtoend/WindowSearch.h"
#include "tests/packaging/CInstallation.h"
#include "tests/packaging/CInstallerTest.h"
#include "tests/packaging/FolderContents.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <string>

namespace
{
// A folder of the user, some of whose files have the names of files of the package.
class ForeignFiles : public CInstallerTest
{
protected:
    void FillPlace() const
    {
        for (const std::string& sFile : m_mine)
        {
            WriteFile(m_place / sFile, "mine");
        }
    }
    void ExpectMineUntouched() const
    {
        for (const std::string& sFile : m_mine)
        {
            EXPECT_TRUE(ReadFile(m_place / sFile) == "mine") << sFile;
        }
    }

    const CFileNames m_mine{"README.txt", "guide/user-guide.html", "Kinetarium-crash-notes.txt"};
};

// The window of an installer that shows its pages.
class CSetupWindow
{
public:
    explicit CSetupWindow(const std::filesystem::path& installer, const std::wstring& sArguments)
        : m_setup(installer, sArguments)
    {
        m_hWindow = WaitUntil("the window of the installer", c_installerPatience, [&] {
            return FindTopWindow([&](HWND hWindow) {
                DWORD uProcess = 0;
                GetWindowThreadProcessId(hWindow, &uProcess);
                return uProcess == m_setup.GetProcessId() && IsWindowVisible(hWindow) && FindControl(hWindow, c_iNext);
            });
        });
    }

    std::wstring ReadFolder() const { return TextOf(WaitForControl(c_iFolder)); }
    void PressNext() const { PostMessageW(WaitForControl(c_iNext), BM_CLICK, 0, 0); }
    // Waits for a message, closes it by this button and returns its text.
    std::wstring CloseMessage(int iButton) const
    {
        const HWND hMessage =
            WaitUntil("a message of the installer", c_installerPatience, [&] { return FindDialogOf(m_hWindow); });
        std::wstring sText;
        for (const HWND hStatic : CollectDescendants(hMessage, [](HWND h) { return ClassOf(h) == L"Static"; }))
        {
            sText += TextOf(hStatic);
        }
        PostMessageW(hMessage, WM_COMMAND, static_cast<WPARAM>(iButton), 0);
        WaitUntil("the message to close", c_installerPatience, [&] { return IsWindow(hMessage) == FALSE; });
        return sText;
    }

private:
    static constexpr int c_iNext = 1;
    static constexpr int c_iFolder = 1019;

    static HWND FindControl(HWND hWindow, int iControl)
    {
        return FindDescendant(hWindow, [&](HWND hChild) {
            return GetDlgCtrlID(hChild) == iControl && IsWindowVisible(hChild) && IsWindowEnabled(hChild);
        });
    }
    HWND WaitForControl(int iControl) const
    {
        return WaitUntil("a page of the installer", c_installerPatience,
                         [&] { return FindControl(m_hWindow, iControl); });
    }
    static std::wstring TextOf(HWND hWindow)
    {
        std::wstring sText(static_cast<std::size_t>(SendMessageW(hWindow, WM_GETTEXTLENGTH, 0, 0)) + 1, L'\0');
        sText.resize(static_cast<std::size_t>(
            SendMessageW(hWindow, WM_GETTEXT, sText.size(), reinterpret_cast<LPARAM>(sText.data()))));
        return sText;
    }

    const CStartedProgram m_setup;
    HWND m_hWindow = nullptr;
};
} // namespace

TEST_F(ForeignFiles, AFolderWithOtherFilesGetsASubFolderAndTheInstallerSaysSo)
{
    FillPlace();
    std::string sOutput;
    ASSERT_EQ(RunToEnd(BuiltInstaller(), L"/S /D=" + m_place.wstring(), sOutput), c_uDoneInSubFolder);
    const std::filesystem::path place = m_place / "Kinetarium";
    EXPECT_NE(sOutput.find(place.string()), std::string::npos) << sOutput;
    ExpectMineUntouched();
    EXPECT_EQ(FilesIn(place), InstalledFiles());
    EXPECT_EQ(ReadListedText(L"InstallLocation"), place.wstring());
    EXPECT_TRUE(std::filesystem::equivalent(TargetOf(StartMenuEntry()), place / "Kinetarium.exe"));

    // The same command again is an update of that sub-folder.
    EXPECT_EQ(Install(BuiltInstaller()), c_uDoneInSubFolder);
    EXPECT_EQ(FilesIn(place), InstalledFiles());
    UninstallAsListed();
    WaitUntil("the sub-folder to go", c_installerPatience, [&] { return !std::filesystem::exists(place); });
    EXPECT_EQ(FilesIn(m_place), m_mine);
    ExpectMineUntouched();
}

TEST_F(ForeignFiles, AFolderWhoseSubFolderHoldsOtherFilesTooIsRefused)
{
    FillPlace();
    WriteFile(m_place / "Kinetarium" / "notes.txt", "mine");
    const CFileNames before = FilesIn(m_place);
    std::string sOutput;
    EXPECT_EQ(RunToEnd(BuiltInstaller(), L"/S /D=" + m_place.wstring(), sOutput), c_uNotDone);
    EXPECT_NE(sOutput.find(m_place.string()), std::string::npos) << sOutput;
    EXPECT_EQ(FilesIn(m_place), before);
    EXPECT_FALSE(IsListed());
    EXPECT_FALSE(std::filesystem::exists(StartMenuEntry()));
}

TEST_F(ForeignFiles, WhatAnUninstalledKinetariumLeftIsNotForeign)
{
    WriteFile(m_place / "Kinetarium.ini", "[Settings]\r\nTot_atoms=777\r\n");
    WriteFile(m_place / "Kinetarium-crash-20260101-120000.txt", "a report");
    WriteFile(m_place / "Kinetarium-crash-20260101-120000.dmp", "its memory");
    EXPECT_EQ(Install(BuiltInstaller()), c_uDone);
    EXPECT_TRUE(std::filesystem::exists(m_place / "Kinetarium.exe"));
    EXPECT_EQ(ReadFile(m_place / "Kinetarium.ini"), "[Settings]\r\nTot_atoms=777\r\n");
}

TEST_F(ForeignFiles, UninstallingLeavesEveryFileThatTheInstallerDidNotWriteOrTheUserHasChanged)
{
    ASSERT_EQ(Install(BuiltInstaller()), c_uDone);
    // A change that keeps the size and the time.
    const std::filesystem::path changed = m_place / "README.txt";
    const auto time = std::filesystem::last_write_time(changed);
    std::string sText = ReadFile(changed);
    sText.front() = 'k';
    WriteFile(changed, sText);
    std::filesystem::last_write_time(changed, time);
    CFileNames mine{"README.txt"};
    for (const char* const sFile :
         {"notes.txt", "guide/notes.txt", "Kinetarium-crash-notes.txt", "Kinetarium-crash-20260101-120000.txt"})
    {
        WriteFile(m_place / sFile, "mine");
        mine.insert(sFile);
    }
    UninstallAsListed();
    EXPECT_EQ(FilesIn(m_place), mine);
    EXPECT_EQ(ReadFile(changed), sText);
}

TEST_F(ForeignFiles, AnUpdateKeepsAChangedFileUnderAnotherName)
{
    ASSERT_EQ(Install(BuiltEarlierInstaller()), c_uDone);
    WriteFile(m_place / "README.txt", "mine");
    WriteFile(m_place / "guide" / "user-guide.html", "mine too");
    ASSERT_EQ(Install(BuiltInstaller()), c_uDone);
    CFileNames expected = InstalledFiles();
    expected.insert({"README.txt.kept", "guide/user-guide.html.kept"});
    EXPECT_EQ(FilesIn(m_place), expected);
    EXPECT_EQ(ReadFile(m_place / "README.txt"), ReadFile(HandedOutFolder() / "README.txt"));
    EXPECT_EQ(ReadFile(m_place / "README.txt.kept"), "mine");
    EXPECT_EQ(ReadFile(m_place / "guide" / "user-guide.html.kept"), "mine too");

    // A second change gets a name of its own.
    WriteFile(m_place / "README.txt", "mine again");
    ASSERT_EQ(Install(BuiltInstaller()), c_uDone);
    EXPECT_EQ(ReadFile(m_place / "README.txt.kept"), "mine");
    EXPECT_EQ(ReadFile(m_place / "README.txt.kept2"), "mine again");
}

TEST_F(ForeignFiles, AShortcutOfTheSameNameThatLeadsElsewhereStays)
{
    const std::filesystem::path portable = m_place / "elsewhere" / "Kinetarium.exe";
    WriteFile(portable, "another copy");
    MakeShortcut(DesktopEntry(), portable);
    const std::string sBefore = ReadFile(DesktopEntry());
    ASSERT_EQ(RunToEnd(BuiltInstaller(), L"/S"), c_uDone);
    EXPECT_EQ(ReadFile(DesktopEntry()), sBefore);
    UninstallAsListed();
    EXPECT_EQ(ReadFile(DesktopEntry()), sBefore);
}

TEST_F(ForeignFiles, TheDialogSaysThatAFolderWithOtherFilesGetsASubFolder)
{
    FillPlace();
    const std::wstring sSubFolder = (m_place / "Kinetarium").wstring();
    const CSetupWindow setup(BuiltInstaller(), L"/D=" + m_place.wstring());
    setup.PressNext(); // after the page of components comes that of the folder
    EXPECT_EQ(setup.ReadFolder(), m_place.wstring());
    setup.PressNext();
    EXPECT_NE(setup.CloseMessage(IDCANCEL).find(sSubFolder), std::wstring::npos);
    EXPECT_EQ(setup.ReadFolder(), m_place.wstring()); // the user may choose again
    EXPECT_EQ(FilesIn(m_place), m_mine);

    setup.PressNext();
    EXPECT_NE(setup.CloseMessage(IDOK).find(sSubFolder), std::wstring::npos);
    WaitUntil("the entry in the list", c_installerPatience,
              [] { return ReadListedText(L"DisplayName") == L"Kinetarium"; });
    EXPECT_EQ(FilesIn(m_place / "Kinetarium"), InstalledFiles());
    EXPECT_EQ(ReadListedText(L"InstallLocation"), sSubFolder);
    ExpectMineUntouched();
}
