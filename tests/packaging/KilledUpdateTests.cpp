#include "tests/packaging/CInstallation.h"
#include "tests/packaging/CInstallerTest.h"
#include "tests/packaging/FolderContents.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

namespace
{
constexpr int c_iKills = 10;
constexpr unsigned c_uSeed = 20261121;

// An update that is ended at a random moment, as by a power cut.
class KilledUpdate : public CInstallerTest
{
protected:
    void ExpectOneWholeVersionAndATrueList() const
    {
        const std::string sProgram = ReadFile(m_place / "Kinetarium.exe");
        const bool bNew = sProgram == m_sNewProgram;
        EXPECT_TRUE(bNew || sProgram == m_sEarlierProgram);
        const std::string sHeadless = ReadFile(m_place / "kinetarium-headless.exe");
        EXPECT_TRUE(sHeadless == m_sNewHeadless || sHeadless == m_sEarlierProgram);

        // In the middle of the exchange the name says that the version is not the whole truth.
        const std::wstring sVersion = ReadListedText(L"DisplayVersion").value_or(L"none");
        if (ReadListedText(L"DisplayName") == L"Kinetarium")
        {
            EXPECT_EQ(sVersion, bNew ? L"" KINETARIUM_VERSION : L"1.9.0");
        }
        else
        {
            EXPECT_NE(ReadListedText(L"DisplayName").value_or(L"").find(L"not finished"), std::wstring::npos);
        }
        EXPECT_EQ(ReadListedText(L"InstallLocation"), m_place.wstring());
        EXPECT_TRUE(std::filesystem::exists(m_place / "Uninstall.exe"));
        EXPECT_EQ(ReadFile(m_place / "Kinetarium.ini"), "[Settings]\r\n");
    }

    const std::string m_sNewProgram = ReadFile(HandedOutFolder() / "Kinetarium.exe");
    const std::string m_sNewHeadless = ReadFile(HandedOutFolder() / "kinetarium-headless.exe");
    std::string m_sEarlierProgram;
};
} // namespace

TEST_F(KilledUpdate, LeavesOneOfTheTwoVersionsAndCanBeRepeatedOrRemoved)
{
    ASSERT_EQ(Install(BuiltEarlierInstaller()), c_uDone);
    m_sEarlierProgram = ReadFile(m_place / "Kinetarium.exe");
    WriteFile(m_place / "Kinetarium.ini", "[Settings]\r\n");
    CFileNames earlier = FilesIn(m_place);

    std::mt19937 random(c_uSeed);
    // Half of the moments lie anywhere, the others right after a certain file has been exchanged: that part is short.
    const auto begin = std::chrono::steady_clock::now();
    ASSERT_EQ(Install(BuiltInstaller()), c_uDone);
    const auto whole = std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - begin);
    const CFileNames installed = InstalledFiles();
    const std::vector<std::string> files(installed.begin(), installed.end());
    ASSERT_EQ(Install(BuiltEarlierInstaller()), c_uDone);
    ASSERT_EQ(FilesIn(m_place), earlier);

    for (int iKill = 0; iKill < c_iKills; ++iKill)
    {
        const std::string sFile = files[random() % files.size()];
        const auto uMoment = static_cast<DWORD>(random() % static_cast<std::uint32_t>(whole.count()));
        SCOPED_TRACE(iKill % 2 == 0 ? sFile : std::to_string(uMoment) + " ms");
        {
            const std::filesystem::path file = m_place / sFile;
            std::error_code missing;
            const auto before = std::filesystem::last_write_time(file, missing);
            const CStartedProgram setup(BuiltInstaller(), L"/S");
            if (iKill % 2 == 0)
            {
                while (!setup.HasEnded(0) && std::filesystem::last_write_time(file, missing) == before)
                {
                }
            }
            else
            {
                setup.HasEnded(uMoment);
            }
            setup.Kill();
        }
        ExpectOneWholeVersionAndATrueList();
        std::string sOutput;
        ASSERT_EQ(RunToEnd(BuiltEarlierInstaller(), L"/S", sOutput), c_uDone) << sOutput;
        ASSERT_EQ(FilesIn(m_place), earlier);
        ASSERT_EQ(ReadFile(m_place / "Kinetarium.exe"), m_sEarlierProgram);
        ASSERT_EQ(ReadListedText(L"DisplayName"), L"Kinetarium");
        ASSERT_EQ(ReadListedText(L"DisplayVersion"), L"1.9.0");
    }
    UninstallAsListed();
    EXPECT_EQ(FilesIn(m_place), CFileNames{"Kinetarium.ini"});
}
