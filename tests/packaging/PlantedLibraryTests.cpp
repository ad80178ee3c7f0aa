#include "tests/endtoend/CDrivenProgram.h"
#include "tests/endtoend/CKinetariumUser.h"
#include "tests/packaging/CInstallation.h"
#include "tests/packaging/CInstallerTest.h"
#include "tests/packaging/CPlantedFolder.h"
#include "tests/packaging/CProgramFile.h"
#include "tests/packaging/FolderContents.h"
#include "tests/packaging/HandedOut.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace
{
// Windows keeps these in memory and looks for them nowhere else. Wine would load a planted one.
const std::set<std::string> c_alwaysTheSystems{"kernel32.dll", "msvcrt.dll"};

// The libraries of the setup program that Windows keeps in memory. Its linker, that of NSIS, delays none. A manifest
// binds comctl32.dll to the folder of the system's versions.
const std::set<std::string> c_alwaysTheSystemsForSetup{"advapi32.dll", "comctl32.dll", "gdi32.dll", "kernel32.dll",
                                                       "ole32.dll",    "shell32.dll",  "user32.dll"};

// What the setup program loads at run time, what these libraries load in turn, and other names that are known to be
// looked for beside a program. Not version.dll: Wine's user32.dll imports it, so that it is loaded before the setup
// program begins.
const std::set<std::string> c_loadedBySetup{
    "apphelp.dll",  "bcrypt.dll",  "clbcatq.dll",  "comctl32.dll", "crypt32.dll", "cryptbase.dll",
    "dwmapi.dll",   "msimg32.dll", "ntmarta.dll",  "oleacc.dll",   "profapi.dll", "propsys.dll",
    "riched20.dll", "secur32.dll", "setupapi.dll", "shfolder.dll", "userenv.dll", "wintrust.dll"};

std::set<std::string> ImportsOf(const std::filesystem::path& program)
{
    const std::vector<std::string> libraries = CProgramFile(program).GetImportedLibraries();
    return {libraries.begin(), libraries.end()};
}

std::set<std::string> DelayedLibraries()
{
    std::set<std::string> libraries;
    std::istringstream names(KINETARIUM_DELAYED_LIBRARIES);
    for (std::string sName; names >> sName;)
    {
        libraries.insert(sName + ".dll");
    }
    return libraries;
}

class PlantedLibrary : public testing::TestWithParam<const wchar_t*>
{
protected:
    PlantedLibrary()
    {
        std::set<std::string> libraries = DelayedLibraries();
        libraries.merge(ImportsOf(m_planted.GetProgram()));
        for (const std::string& sLibrary : libraries)
        {
            if (!c_alwaysTheSystems.contains(sLibrary))
            {
                m_planted.Plant(sLibrary);
            }
        }
        m_planted.Override(L"d2d1", L""); // as for every program whose picture is looked at
    }

    CPlantedFolder m_planted{HandedOutFolder() / GetParam()};
};

class PlantedLibraryWithWindow : public PlantedLibrary
{
};
class PlantedLibraryWithoutWindow : public PlantedLibrary
{
};
} // namespace

INSTANTIATE_TEST_SUITE_P(HandedOut, PlantedLibrary, testing::Values(L"Kinetarium.exe", L"kinetarium-headless.exe"),
                         [](const auto& row) { return row.param[0] == L'K' ? "Kinetarium" : "KinetariumHeadless"; });
INSTANTIATE_TEST_SUITE_P(HandedOut, PlantedLibraryWithWindow, testing::Values(L"Kinetarium.exe"),
                         [](const auto&) { return "Kinetarium"; });
INSTANTIATE_TEST_SUITE_P(HandedOut, PlantedLibraryWithoutWindow, testing::Values(L"kinetarium-headless.exe"),
                         [](const auto&) { return "KinetariumHeadless"; });

TEST_P(PlantedLibrary, TheLoaderItselfIsAskedOnlyForLibrariesThatTheSystemKeepsInMemory)
{
    for (const std::string& sLibrary : ImportsOf(m_planted.GetProgram()))
    {
        EXPECT_TRUE(c_alwaysTheSystems.contains(sLibrary)) << sLibrary;
    }
}

TEST_P(PlantedLibrary, TheTestCanSeeAPlantedLibraryThatIsLoaded)
{
    const std::filesystem::path planted = m_planted.GetFolder() / "other.dll";
    std::filesystem::copy_file(PlantedFile(), planted);
    const HMODULE hLibrary = LoadLibraryW(planted.c_str());
    ASSERT_NE(hLibrary, nullptr);
    FreeLibrary(hLibrary);
    EXPECT_TRUE(FilesIn(m_planted.GetFolder()).contains("other.dll.loaded"));
}

TEST_P(PlantedLibraryWithWindow, NoLibraryBesideTheProgramIsLoaded)
{
    constexpr auto c_patience = std::chrono::milliseconds(20000);
    const CDrivenProgram program(m_planted.GetProgram());
    const CKinetariumUser user(program);
    user.PressStart();
    user.WaitForStatistics(0);
    user.PressStop();
    for (const std::string& sLibrary : m_planted.GetLibraries())
    {
        EXPECT_FALSE(program.HasModuleFrom(std::wstring(sLibrary.begin(), sLibrary.end()),
                                           m_planted.GetFolder().filename().wstring()))
            << sLibrary;
    }
    user.Close();
    EXPECT_EQ(program.WaitForExit(c_patience), 0U);
    m_planted.ExpectNoneWasLoaded();
}

TEST_P(PlantedLibraryWithoutWindow, NoLibraryBesideTheProgramIsLoaded)
{
    EXPECT_EQ(RunToEnd(m_planted.GetProgram(), L"--iterations 1"), 0U);
    m_planted.ExpectNoneWasLoaded();
}

// As in the folder of the downloads, where every site may have put something.
class PlantedLibraryBesideSetup : public CInstallerTest
{
};

TEST_F(PlantedLibraryBesideSetup, NoneIsLoaded)
{
    CPlantedFolder planted(BuiltInstaller());
    const CClaimedWindows windows(planted.GetProgram(), L"win10");
    for (const std::string& sLibrary : c_loadedBySetup)
    {
        planted.Plant(sLibrary);
    }
    EXPECT_EQ(RunToEnd(planted.GetProgram(), L"/S /D=" + m_place.wstring()), c_uDone);
    planted.ExpectNoneWasLoaded();
}

// Before the setup program can say where libraries are looked for, the loader has loaded these.
TEST_F(PlantedLibraryBesideSetup, TheLoaderItselfIsAskedOnlyForLibrariesOfTheSystem)
{
    const CProgramFile setup(BuiltInstaller());
    for (const std::string& sLibrary : setup.GetImportedLibraries())
    {
        EXPECT_TRUE(c_alwaysTheSystemsForSetup.contains(sLibrary)) << sLibrary;
    }
    EXPECT_TRUE(setup.Contains("Microsoft.Windows.Common-Controls"));
    EXPECT_TRUE(setup.Contains("SetDefaultDllDirectories"));
    ASSERT_EQ(Install(BuiltInstaller()), c_uDone);
    EXPECT_EQ(ImportsOf(m_place / "Uninstall.exe"), ImportsOf(BuiltInstaller()));
}
