#include "tests/packaging/CInstallation.h"
#include "tests/packaging/FolderContents.h"
#include "tests/packaging/HandedOut.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

// CMakeLists.txt states the version; everything that tells it must tell the same.

namespace
{
const std::string c_sVersion = KINETARIUM_VERSION;

// The version among the properties of a file, of three numbers.
std::string FileVersion(const std::filesystem::path& file)
{
    std::vector<char> version(GetFileVersionInfoSizeW(file.c_str(), nullptr));
    VS_FIXEDFILEINFO* pFixed = nullptr;
    UINT uLength = 0;
    if (version.empty() ||
        GetFileVersionInfoW(file.c_str(), 0, static_cast<DWORD>(version.size()), version.data()) == FALSE ||
        VerQueryValueW(version.data(), L"\\", reinterpret_cast<void**>(&pFixed), &uLength) == FALSE)
    {
        return "none";
    }
    return std::to_string(HIWORD(pFixed->dwFileVersionMS)) + "." + std::to_string(LOWORD(pFixed->dwFileVersionMS)) +
           "." + std::to_string(HIWORD(pFixed->dwFileVersionLS));
}

// The word between the first `sBegin` and the next `sEnd`.
std::string WordBetween(const std::string& sText, const std::string& sBegin, const std::string& sEnd)
{
    const std::size_t uFound = sText.find(sBegin);
    if (uFound == std::string::npos)
    {
        return "none";
    }
    const std::size_t uWord = uFound + sBegin.size();
    return sText.substr(uWord, sText.find(sEnd, uWord) - uWord);
}

// Every version in the name of a package.
std::vector<std::string> PackageVersionsIn(std::string sText)
{
    std::vector<std::string> versions;
    for (std::size_t uFound = sText.find("Kinetarium-"); uFound != std::string::npos;
         uFound = sText.find("Kinetarium-"))
    {
        sText.erase(0, uFound);
        const std::string sName = sText.substr(0, sText.find_first_of(" `<\n"));
        if (sName.find("-windows-x64") != std::string::npos && sName.find("VERSION") == std::string::npos)
        {
            versions.push_back(WordBetween(sName, "Kinetarium-", "-windows"));
        }
        sText.erase(0, 1);
    }
    return versions;
}
} // namespace

TEST(Version, BothProgramsWriteIt)
{
    std::string sOutput;
    EXPECT_EQ(RunToEnd(HandedOutFolder() / "Kinetarium.exe", L"--version", sOutput), 0U);
    EXPECT_EQ(sOutput, "Kinetarium " + c_sVersion + "\r\n");
    EXPECT_EQ(RunToEnd(HandedOutFolder() / "kinetarium-headless.exe", L"--version", sOutput), 0U);
    EXPECT_EQ(sOutput, "kinetarium-headless " + c_sVersion + "\n");
}

TEST(Version, IsAmongThePropertiesOfTheProgramsAndTheInstaller)
{
    EXPECT_EQ(FileVersion(HandedOutFolder() / "Kinetarium.exe"), c_sVersion);
    EXPECT_EQ(FileVersion(HandedOutFolder() / "kinetarium-headless.exe"), c_sVersion);
    EXPECT_EQ(FileVersion(BuiltInstaller()), c_sVersion);
}

TEST(Version, IsThatOfTheNewestReleaseInTheListOfChanges)
{
    std::string sChanges = ReadFile(HandedOutFolder() / "guide" / "changelog.html");
    const std::string sHeading = "<h2 id=\"";
    if (WordBetween(sChanges, sHeading, "\"") == "unreleased")
    {
        sChanges.erase(0, sChanges.find(sHeading) + sHeading.size());
    }
    sChanges.erase(0, sChanges.find(sHeading));
    EXPECT_EQ(WordBetween(sChanges, ">", "</h2>"), c_sVersion);
}

TEST(Version, IsTheOneThatTheDocumentsName)
{
    EXPECT_EQ(WordBetween(ReadFile(HandedOutFolder() / "README.txt"), "Kinetarium ", " "), c_sVersion);
    const std::filesystem::path sources = KINETARIUM_SOURCE_FOLDER;
    for (const std::filesystem::path& document :
         {HandedOutFolder() / "guide" / "user-guide.html", sources / "README.md"})
    {
        const auto versions = PackageVersionsIn(ReadFile(document));
        EXPECT_FALSE(versions.empty()) << document;
        for (const std::string& sVersion : versions)
        {
            EXPECT_EQ(sVersion, c_sVersion) << document;
        }
    }
}
