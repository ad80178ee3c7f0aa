#include "tests/packaging/CInstallation.h"
#include "tests/packaging/CInstallerTest.h"
#include "tests/packaging/FolderContents.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <random>
#include <string>
#include <system_error>
#include <vector>

namespace
{
constexpr int c_iKills = 10;
constexpr unsigned c_uSeed = 20261122;

// A first installation and a removal that are ended at a random moment, as by a power cut.
class KilledSetup : public CInstallerTest
{
protected:
    ~KilledSetup() override
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_copies, ignored);
    }
    bool IsInstalled(const std::string& sFile) const { return std::filesystem::exists(m_place / sFile); }
    // All files of the package, with their content.
    void ExpectTheWholeProgram() const
    {
        for (const std::string& sFile : InstalledFiles())
        {
            EXPECT_TRUE(IsInstalled(sFile)) << sFile;
        }
        for (const std::string& sFile : FilesIn(HandedOutFolder()))
        {
            EXPECT_EQ(ReadFile(m_place / sFile) == ReadFile(HandedOutFolder() / sFile), true) << sFile;
        }
    }
    // What the list says of a folder in the middle of the work. The name without an addition promises a whole program.
    void ExpectATrueList(const std::wstring& sUnfinished) const
    {
        const std::wstring sName = ReadListedText(L"DisplayName").value_or(L"");
        if (sName == L"Kinetarium")
        {
            ExpectTheWholeProgram();
        }
        else if (IsListed())
        {
            EXPECT_EQ(sName, sUnfinished);
        }
        if (IsListed())
        {
            EXPECT_EQ(ReadListedText(L"InstallLocation").value_or(m_place.wstring()), m_place.wstring());
            EXPECT_TRUE(IsInstalled("Uninstall.exe"));
        }
        else
        {
            EXPECT_FALSE(IsInstalled("Kinetarium.exe"));
            EXPECT_FALSE(IsInstalled("kinetarium-headless.exe"));
        }
    }
    // Ends the program at a moment that lies anywhere in its usual time, or, every second time, as soon as a file is
    // there or gone: that part is short.
    void Kill(const CStartedProgram& setup, int iKill, const std::string& sFile, bool bComes, DWORD uMoment) const
    {
        if (iKill % 2 == 0)
        {
            while (!setup.HasEnded(0) && IsInstalled(sFile) != bComes)
            {
            }
        }
        else
        {
            setup.HasEnded(uMoment);
        }
        setup.Kill();
    }
    DWORD MillisecondsOf(const std::function<void()>& work) const
    {
        const auto begin = std::chrono::steady_clock::now();
        work();
        return static_cast<DWORD>(
            std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - begin).count());
    }
    // Like the uninstaller when it is started from the list, which copies itself, because a running program cannot be
    // deleted.
    std::filesystem::path CopyUninstaller() const
    {
        const std::filesystem::path copy = m_copies / "Uninstall.exe";
        WriteFile(copy, ReadFile(m_place / "Uninstall.exe"));
        return copy;
    }
    std::wstring UninstallArguments() const { return L"/S _?=" + m_place.wstring(); }
    // Removes Kinetarium and expects that nothing is left.
    void ExpectToRemoveEverything() const
    {
        ASSERT_EQ(RunToEnd(CopyUninstaller(), UninstallArguments()), c_uDone);
        EXPECT_EQ(FilesIn(m_place), CFileNames{});
        EXPECT_FALSE(IsListed());
        EXPECT_FALSE(std::filesystem::exists(StartMenuEntry()));
    }

    const std::filesystem::path m_copies =
        std::filesystem::temp_directory_path() / ("kinetarium uninstaller " + std::to_string(GetCurrentProcessId()));
    std::mt19937 m_random{c_uSeed};
};
} // namespace

TEST_F(KilledSetup, AFirstInstallationLeavesNothingOrAListedProgramAndCanBeRepeated)
{
    const DWORD uWhole = MillisecondsOf([&] { ASSERT_EQ(Install(BuiltInstaller()), c_uDone); });
    const CFileNames installed = InstalledFiles();
    const std::vector<std::string> files(installed.begin(), installed.end());
    ExpectToRemoveEverything();
    for (int iKill = 0; iKill < c_iKills; ++iKill)
    {
        const std::string sFile = files[m_random() % files.size()];
        const auto uMoment = static_cast<DWORD>(m_random() % uWhole);
        SCOPED_TRACE(iKill % 2 == 0 ? sFile : std::to_string(uMoment) + " ms");
        {
            const CStartedProgram setup(BuiltInstaller(), L"/S /D=" + m_place.wstring());
            Kill(setup, iKill, sFile, true, uMoment);
        }
        ExpectATrueList(L"Kinetarium (installation not finished)");
        std::string sOutput;
        ASSERT_EQ(RunToEnd(BuiltInstaller(), L"/S /D=" + m_place.wstring(), sOutput), c_uDone) << sOutput;
        ExpectTheWholeProgram();
        ASSERT_EQ(FilesIn(m_place), installed);
        ASSERT_EQ(ReadListedText(L"DisplayName"), L"Kinetarium");
        ExpectToRemoveEverything();
    }
}

TEST_F(KilledSetup, ARemovalLeavesAListedProgramOrNothingAndCanBeRepeated)
{
    ASSERT_EQ(Install(BuiltInstaller()), c_uDone);
    const CFileNames installed = InstalledFiles();
    const std::vector<std::string> files(installed.begin(), installed.end());
    const DWORD uWhole = MillisecondsOf([&] { ExpectToRemoveEverything(); });
    for (int iKill = 0; iKill < c_iKills; ++iKill)
    {
        // Without its record the folder would be foreign to the next installer.
        const std::string sFile = iKill == 0 ? "installed-files.ini" : files[m_random() % files.size()];
        const auto uMoment = static_cast<DWORD>(m_random() % uWhole);
        SCOPED_TRACE(iKill % 2 == 0 ? sFile : std::to_string(uMoment) + " ms");
        ASSERT_EQ(Install(BuiltInstaller()), c_uDone);
        {
            const CStartedProgram setup(CopyUninstaller(), UninstallArguments());
            Kill(setup, iKill, sFile, false, uMoment);
        }
        ExpectATrueList(L"Kinetarium (removal not finished)");
        // As a user repeats it: with what the list offers, or there is nothing to remove.
        if (IsListed())
        {
            ExpectToRemoveEverything();
        }
    }
    ASSERT_EQ(Install(BuiltInstaller()), c_uDone);
    ExpectTheWholeProgram();
}
