#include "tests/endtoend/CDrivenProgram.h"
#include "tests/endtoend/CKinetariumUser.h"
#include "tests/packaging/CInstallation.h"
#include "tests/packaging/CInstallerTest.h"
#include "tests/packaging/FolderContents.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <utility>

namespace
{
// A file that another program has open.
class COpenFile
{
public:
    COpenFile(const std::filesystem::path& file, DWORD uShared)
        : m_hFile(CreateFileW(file.c_str(), GENERIC_READ, uShared, nullptr, OPEN_EXISTING, 0, nullptr))
    {
        EXPECT_NE(m_hFile, INVALID_HANDLE_VALUE) << file;
    }
    ~COpenFile() { CloseHandle(m_hFile); }
    COpenFile(const COpenFile&) = delete;
    COpenFile& operator=(const COpenFile&) = delete;

private:
    const HANDLE m_hFile;
};

std::map<std::string, std::string> ContentsOf(const std::filesystem::path& folder)
{
    std::map<std::string, std::string> contents;
    for (const std::string& sFile : FilesIn(folder))
    {
        contents[sFile] = ReadFile(folder / sFile);
    }
    return contents;
}

// An installed earlier version that an update must not damage.
class UpdateFailure : public CInstallerTest
{
protected:
    // What is installed and what the list says of it.
    struct CState
    {
        std::map<std::string, std::string> files;
        std::optional<std::wstring> name;
        std::optional<std::wstring> version;
        std::optional<std::wstring> place;
        std::optional<std::wstring> uninstall;

        bool operator==(const CState&) const = default;
    };

    static CState StateOf(const std::filesystem::path& folder)
    {
        return {ContentsOf(folder), ReadListedText(L"DisplayName"), ReadListedText(L"DisplayVersion"),
                ReadListedText(L"InstallLocation"), ReadListedText(L"UninstallString")};
    }

    void ExpectTheUpdateSucceedsNow() const
    {
        EXPECT_EQ(Install(BuiltInstaller()), c_uDone);
        EXPECT_EQ(ReadListedText(L"DisplayName"), L"Kinetarium");
        EXPECT_EQ(ReadListedText(L"DisplayVersion"), L"" KINETARIUM_VERSION);
        EXPECT_EQ(FilesIn(m_place), InstalledFiles());
    }
};
} // namespace

TEST_F(UpdateFailure, AFileThatAnotherProgramHasOpenLeavesTheEarlierVersion)
{
    ASSERT_EQ(Install(BuiltEarlierInstaller()), c_uDone);
    const CState before = StateOf(m_place);
    const std::pair<const char*, DWORD> cases[] = {
        {"README.txt", FILE_SHARE_READ}, {"Uninstall.exe", 0}, {"installed-files.ini", FILE_SHARE_READ}};
    for (const auto& [sFile, uShared] : cases)
    {
        const COpenFile open(m_place / sFile, uShared);
        EXPECT_EQ(Install(BuiltInstaller()), c_uNotDone) << sFile;
    }
    EXPECT_TRUE(StateOf(m_place) == before);
    ExpectTheUpdateSucceedsNow();
}

// A folder in the place of a file is found only in the middle of the exchange.
TEST_F(UpdateFailure, AFailureInTheMiddleOfTheExchangeIsUndone)
{
    ASSERT_EQ(Install(BuiltEarlierInstaller()), c_uDone);
    WriteFile(m_place / "licences" / "gcc.txt" / "notes.txt", "mine");
    WriteFile(m_place / "README.txt", "changed");
    const CState before = StateOf(m_place);
    EXPECT_EQ(Install(BuiltInstaller()), c_uNotDone);
    EXPECT_TRUE(StateOf(m_place) == before);
    std::filesystem::rename(m_place / "licences" / "gcc.txt", m_place / "mine");
    EXPECT_EQ(Install(BuiltInstaller()), c_uDone);
    EXPECT_EQ(ReadFile(m_place / "README.txt.kept"), "changed");
    EXPECT_EQ(ReadFile(m_place / "mine" / "notes.txt"), "mine");
}

TEST_F(UpdateFailure, AFirstInstallationThatFailsLeavesNothing)
{
    WriteFile(m_place / "Kinetarium.ini", "[Settings]\r\n");
    const COpenFile open(m_place / "Kinetarium.ini", 0); // is none of its business
    ASSERT_EQ(Install(BuiltInstaller()), c_uDone);
    ASSERT_EQ(Uninstall(), c_uDone);
    ASSERT_FALSE(IsListed());

    WriteFile(DefaultPlace() / "Kinetarium-update" / "new", "a file where the installer needs a folder");
    const CFileNames before = FilesIn(DefaultPlace());
    EXPECT_EQ(RunToEnd(BuiltInstaller(), L"/S"), c_uNotDone);
    EXPECT_EQ(FilesIn(DefaultPlace()), before);
    EXPECT_FALSE(IsListed());
    EXPECT_FALSE(std::filesystem::exists(StartMenuEntry()));
}

TEST_F(UpdateFailure, AnUpdateIntoAnotherFolderThatFailsLeavesTheEarlierVersionInItsOwn)
{
    ASSERT_EQ(RunToEnd(BuiltEarlierInstaller(), L"/S"), c_uDone);
    const CState before = StateOf(DefaultPlace());
    WriteFile(m_place, "no folder");
    EXPECT_EQ(Install(BuiltInstaller()), c_uNotDone);
    EXPECT_EQ(ReadFile(m_place), "no folder");
    std::filesystem::remove(m_place);
    WriteFile(m_place / "Kinetarium-update" / "new", "a file where the installer needs a folder");
    EXPECT_EQ(Install(BuiltInstaller()), c_uNotDone);
    EXPECT_TRUE(StateOf(DefaultPlace()) == before);
    EXPECT_EQ(FilesIn(m_place), CFileNames{"Kinetarium-update/new"});
}

// The list names the new version then; only the rest of the earlier one has to wait.
TEST_F(UpdateFailure, AnOpenFileThatOnlyTheEarlierVersionHadStaysRecorded)
{
    ASSERT_EQ(Install(BuiltEarlierInstaller()), c_uDone);
    {
        const COpenFile open(m_place / "guide" / "earlier.html", FILE_SHARE_READ);
        EXPECT_EQ(Install(BuiltInstaller()), c_uDone);
        EXPECT_EQ(ReadListedText(L"DisplayVersion"), L"" KINETARIUM_VERSION);
        EXPECT_TRUE(std::filesystem::exists(m_place / "guide" / "earlier.html"));
    }
    UninstallAsListed();
    EXPECT_EQ(FilesIn(m_place), CFileNames{});
}

TEST_F(UpdateFailure, AnOpenFileKeepsTheUninstallerFromRemovingAnything)
{
    ASSERT_EQ(Install(BuiltInstaller()), c_uDone);
    const CState before = StateOf(m_place);
    {
        const COpenFile open(m_place / "guide" / "user-guide.html", FILE_SHARE_READ);
        EXPECT_EQ(Uninstall(), c_uNotDone);
    }
    EXPECT_TRUE(StateOf(m_place) == before);
    EXPECT_TRUE(std::filesystem::exists(StartMenuEntry()));
}

// A silent installer cannot ask the user to close a program.
TEST_F(UpdateFailure, WhileTheProgramRunsNothingIsReplacedOrRemoved)
{
    ASSERT_EQ(Install(BuiltInstaller()), c_uDone);
    const CDrivenProgram program(m_place / "Kinetarium.exe");
    const CKinetariumUser user(program);
    EXPECT_EQ(Install(BuiltInstaller()), c_uRunning);
    EXPECT_EQ(Uninstall(), c_uRunning);
    EXPECT_EQ(FilesIn(m_place), InstalledFiles());
    EXPECT_TRUE(IsListed());
    user.Close();
    EXPECT_EQ(program.WaitForExit(c_installerPatience), 0U);
    EXPECT_EQ(Install(BuiltInstaller()), c_uDone);
}

TEST_F(UpdateFailure, WhileTheProgramWithoutWindowRunsNothingIsReplacedOrRemoved)
{
    ASSERT_EQ(Install(BuiltInstaller()), c_uDone);
    const CState before = StateOf(m_place);
    {
        const CStartedProgram program(m_place / "kinetarium-headless.exe", L"--iterations 1000000000");
        std::string sOutput;
        EXPECT_EQ(RunToEnd(BuiltInstaller(), L"/S", sOutput), c_uRunning);
        EXPECT_NE(sOutput.find("kinetarium-headless"), std::string::npos) << sOutput;
        EXPECT_EQ(Uninstall(), c_uRunning);
        // Also when the update goes into another folder.
        EXPECT_EQ(RunToEnd(BuiltInstaller(), L"/S /D=" + DefaultPlace().wstring()), c_uRunning);
        EXPECT_FALSE(program.HasEnded(0));
    }
    EXPECT_TRUE(StateOf(m_place) == before);
    EXPECT_FALSE(std::filesystem::exists(DefaultPlace()));
    ExpectTheUpdateSucceedsNow();
}

TEST_F(UpdateFailure, TwoInstallersDoNotWorkAtTheSameTime)
{
    const HANDLE hOther = CreateMutexW(nullptr, FALSE, L"Kinetarium setup");
    EXPECT_EQ(Install(BuiltInstaller()), c_uRunning);
    EXPECT_FALSE(std::filesystem::exists(m_place));
    CloseHandle(hOther);
    EXPECT_EQ(Install(BuiltInstaller()), c_uDone);
}

// Version 2.0.0 recorded nothing.
TEST_F(UpdateFailure, AnInstallationWithoutARecordIsReplaced)
{
    ASSERT_EQ(Install(BuiltEarlierInstaller()), c_uDone);
    std::filesystem::remove(m_place / "installed-files.ini");
    EXPECT_EQ(Uninstall(), c_uNotDone);
    EXPECT_TRUE(IsListed());
    std::filesystem::remove(m_place / "guide" / "earlier.html");
    std::filesystem::remove(m_place / "guide");
    ExpectTheUpdateSucceedsNow();
}
