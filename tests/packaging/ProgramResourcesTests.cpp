#include "tests/packaging/HandedOut.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <cstring>
#include <set>
#include <string>
#include <vector>

namespace
{
constexpr WORD c_uIcon = 104;
constexpr DWORD c_uLanguageAndCodePage = 0x040904B0; // English (United States), Unicode

// The resources of a program.
class ProgramResources : public testing::TestWithParam<const wchar_t*>
{
protected:
    ProgramResources()
        : m_file(HandedOutFolder() / GetParam()),
          m_hProgram(LoadLibraryExW(m_file.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE | LOAD_LIBRARY_AS_IMAGE_RESOURCE))
    {
    }
    ~ProgramResources() override
    {
        if (m_hProgram != nullptr)
        {
            FreeLibrary(m_hProgram);
        }
    }

    // The bytes of a resource; empty if there is no resource with that number.
    std::string Read(LPCWSTR sType, WORD uNumber) const
    {
        const HRSRC hFound = FindResourceW(m_hProgram, MAKEINTRESOURCEW(uNumber), sType);
        if (hFound == nullptr)
        {
            return {};
        }
        const HGLOBAL hLoaded = LoadResource(m_hProgram, hFound);
        return {static_cast<const char*>(LockResource(hLoaded)), SizeofResource(m_hProgram, hFound)};
    }

    std::vector<char> ReadVersion() const
    {
        const DWORD uSize = GetFileVersionInfoSizeW(m_file.c_str(), nullptr);
        std::vector<char> version(uSize);
        if (uSize == 0 || GetFileVersionInfoW(m_file.c_str(), 0, uSize, version.data()) == FALSE)
        {
            return {};
        }
        return version;
    }

    const std::filesystem::path m_file;
    const HMODULE m_hProgram;
};

class WindowProgramResources : public ProgramResources
{
};

std::wstring VersionText(const std::vector<char>& version, const std::wstring& sName)
{
    wchar_t* sText = nullptr;
    UINT uLength = 0;
    const std::wstring sPath = L"\\StringFileInfo\\040904B0\\" + sName;
    if (version.empty() ||
        VerQueryValueW(version.data(), sPath.c_str(), reinterpret_cast<void**>(&sText), &uLength) == FALSE)
    {
        return {};
    }
    return sText;
}
} // namespace

INSTANTIATE_TEST_SUITE_P(HandedOut, ProgramResources, testing::Values(L"Kinetarium.exe", L"kinetarium-headless.exe"),
                         [](const auto& row) { return row.param[0] == L'K' ? "Kinetarium" : "KinetariumHeadless"; });
INSTANTIATE_TEST_SUITE_P(HandedOut, WindowProgramResources, testing::Values(L"Kinetarium.exe"),
                         [](const auto&) { return "Kinetarium"; });

// Without one of these Windows treats the program as an old one: unthemed controls, blurred text, file names of one
// code page only, redirected folders.
TEST_P(WindowProgramResources, TheManifestAsksForTheControlsScalingRightsAndCodePageOfToday)
{
    const std::string sManifest = Read(RT_MANIFEST, 1);
    for (const char* const sPart :
         {R"(name="Microsoft.Windows.Common-Controls" version="6.0.0.0")", R"(level="asInvoker")",
          R"(uiAccess="false")",
          R"(Id="{8e0f7a12-bfb3-4fe8-b9a5-48fd50a15a9a}")", // Windows 10 and 11
          R"(SMI/2005/WindowsSettings">false</dpiAware>)", R"(SMI/2017/WindowsSettings">true</gdiScaling>)",
          R"(SMI/2019/WindowsSettings">UTF-8</activeCodePage>)"})
    {
        EXPECT_NE(sManifest.find(sPart), std::string::npos) << sPart;
    }
    EXPECT_NE(sManifest.find("version=\"" KINETARIUM_VERSION ".0\""), std::string::npos);
}

TEST_P(ProgramResources, TheVersionIsThatOfTheBuild)
{
    const auto version = ReadVersion();
    EXPECT_EQ(VersionText(version, L"ProductName"), L"Kinetarium");
    EXPECT_EQ(VersionText(version, L"ProductVersion"), L"" KINETARIUM_VERSION);
    EXPECT_EQ(VersionText(version, L"FileVersion"), L"" KINETARIUM_VERSION);
    EXPECT_EQ(VersionText(version, L"OriginalFilename"), GetParam());
    EXPECT_EQ(VersionText(version, L"FileDescription").substr(0, 10), L"Kinetarium");

    VS_FIXEDFILEINFO* pFixed = nullptr;
    UINT uLength = 0;
    ASSERT_FALSE(version.empty());
    ASSERT_NE(VerQueryValueW(version.data(), L"\\", reinterpret_cast<void**>(&pFixed), &uLength), FALSE);
    const std::wstring sNumbers = std::to_wstring(HIWORD(pFixed->dwFileVersionMS)) + L"." +
                                  std::to_wstring(LOWORD(pFixed->dwFileVersionMS)) + L"." +
                                  std::to_wstring(HIWORD(pFixed->dwFileVersionLS));
    EXPECT_EQ(sNumbers, L"" KINETARIUM_VERSION);
    EXPECT_EQ(pFixed->dwFileVersionMS, pFixed->dwProductVersionMS);
    EXPECT_EQ(pFixed->dwFileVersionLS, pFixed->dwProductVersionLS);

    DWORD* pTranslation = nullptr;
    ASSERT_NE(VerQueryValueW(version.data(), L"\\VarFileInfo\\Translation", reinterpret_cast<void**>(&pTranslation),
                             &uLength),
              FALSE);
    EXPECT_EQ(MAKELONG(HIWORD(*pTranslation), LOWORD(*pTranslation)), static_cast<LONG>(c_uLanguageAndCodePage));
}

// Windows takes the size that fits: the title bar, the task bar, the desktop at each of its scales.
TEST_P(ProgramResources, TheIconIsDrawnForEverySizeThatWindowsShows)
{
    const std::string sGroup = Read(RT_GROUP_ICON, c_uIcon);
    constexpr std::size_t c_uHeader = 6;  // bytes before the first entry
    constexpr std::size_t c_uEntry = 14;  // bytes of an entry, which begins with its width and height
    constexpr std::size_t c_uColours = 6; // where an entry has its bits per pixel
    constexpr std::size_t c_uNumber = 12; // where it has the number of its picture
    constexpr int c_iLargest = 256;       // written as 0
    std::set<int> sizes;
    for (std::size_t uEntry = c_uHeader; uEntry + c_uEntry <= sGroup.size(); uEntry += c_uEntry)
    {
        const auto uWidth = static_cast<unsigned char>(sGroup[uEntry]);
        const auto uHeight = static_cast<unsigned char>(sGroup[uEntry + 1]);
        EXPECT_EQ(uWidth, uHeight);
        EXPECT_EQ(sGroup[uEntry + c_uColours], 32); // bits, with transparency
        WORD uNumber = 0;
        std::memcpy(&uNumber, sGroup.data() + uEntry + c_uNumber, sizeof(uNumber));
        EXPECT_FALSE(Read(RT_ICON, uNumber).empty());
        sizes.insert(uWidth == 0 ? c_iLargest : uWidth);
    }
    EXPECT_EQ(sizes, (std::set<int>{16, 20, 24, 32, 40, 48, 64, c_iLargest}));
}
