#include "tests/endtoend/CDrivenProgram.h"
#include "tests/endtoend/CKinetariumUser.h"
#include "tests/packaging/CInstallation.h"
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

namespace
{
// Windows keeps these in memory and looks for them nowhere else. Wine would load a planted one.
const std::set<std::string> c_alwaysTheSystems{"kernel32.dll", "msvcrt.dll"};

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

// A folder with a program and a planted library for each that it needs, as a user may have downloaded them. Wine
// prefers its own libraries; here it is told to look for others first, as Windows does.
class PlantedLibrary : public testing::TestWithParam<const wchar_t*>
{
protected:
    PlantedLibrary()
    {
        const std::filesystem::path original = HandedOutFolder() / GetParam();
        m_program = m_folder / (L"planted-" + std::wstring(GetParam()));
        m_sKey = L"Software\\Wine\\AppDefaults\\" + m_program.filename().wstring() + L"\\DllOverrides";
        std::filesystem::create_directories(m_folder);
        std::filesystem::copy_file(original, m_program);
        m_libraries = DelayedLibraries();
        for (const std::string& sLibrary : CProgramFile(original).GetImportedLibraries())
        {
            m_libraries.insert(sLibrary);
        }
        for (const std::string& sLibrary : c_alwaysTheSystems)
        {
            m_libraries.erase(sLibrary);
        }
        for (const std::string& sLibrary : m_libraries)
        {
            std::filesystem::copy_file(BuildTree() / "tests-bin" / "kinetarium-planted.dll", m_folder / sLibrary);
            Override(std::filesystem::path(sLibrary).stem().wstring(), L"native,builtin");
        }
        Override(L"d2d1", L""); // as for every program whose picture is looked at
    }
    ~PlantedLibrary() override
    {
        RegDeleteTreeW(HKEY_CURRENT_USER, m_sKey.c_str());
        std::error_code ignored;
        std::filesystem::remove_all(m_folder, ignored);
    }

    void Override(const std::wstring& sLibrary, const std::wstring& sOrder) const
    {
        RegSetKeyValueW(HKEY_CURRENT_USER, m_sKey.c_str(), sLibrary.c_str(), REG_SZ, sOrder.c_str(),
                        static_cast<DWORD>((sOrder.size() + 1) * sizeof(wchar_t)));
    }
    void ExpectNoneWasLoaded() const
    {
        for (const std::string& sFile : FilesIn(m_folder))
        {
            EXPECT_FALSE(sFile.ends_with(".loaded")) << sFile;
        }
    }

    const std::filesystem::path m_folder =
        std::filesystem::temp_directory_path() / ("kinetarium planted " + std::to_string(GetCurrentProcessId()));
    std::filesystem::path m_program;
    std::wstring m_sKey;
    std::set<std::string> m_libraries;
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
    for (const std::string& sLibrary : CProgramFile(m_program).GetImportedLibraries())
    {
        EXPECT_TRUE(c_alwaysTheSystems.contains(sLibrary)) << sLibrary;
    }
}

TEST_P(PlantedLibrary, TheTestCanSeeAPlantedLibraryThatIsLoaded)
{
    const std::filesystem::path planted = m_folder / "other.dll";
    std::filesystem::copy_file(BuildTree() / "tests-bin" / "kinetarium-planted.dll", planted);
    const HMODULE hLibrary = LoadLibraryW(planted.c_str());
    ASSERT_NE(hLibrary, nullptr);
    FreeLibrary(hLibrary);
    EXPECT_TRUE(FilesIn(m_folder).contains("other.dll.loaded"));
}

TEST_P(PlantedLibraryWithWindow, NoLibraryBesideTheProgramIsLoaded)
{
    constexpr auto c_patience = std::chrono::milliseconds(20000);
    const CDrivenProgram program(m_program);
    const CKinetariumUser user(program);
    user.PressStart();
    user.WaitForStatistics(0);
    user.PressStop();
    for (const std::string& sLibrary : m_libraries)
    {
        EXPECT_FALSE(
            program.HasModuleFrom(std::wstring(sLibrary.begin(), sLibrary.end()), m_folder.filename().wstring()))
            << sLibrary;
    }
    user.Close();
    EXPECT_EQ(program.WaitForExit(c_patience), 0U);
    ExpectNoneWasLoaded();
}

TEST_P(PlantedLibraryWithoutWindow, NoLibraryBesideTheProgramIsLoaded)
{
    EXPECT_EQ(RunToEnd(m_program, L"--iterations 1"), 0U);
    ExpectNoneWasLoaded();
}
