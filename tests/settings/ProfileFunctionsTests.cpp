#include "settings/CIniText.h"
#include "settings/SettingsFile.h"
#include "tests/settings/CIniTextWriter.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <string>

namespace fs = std::filesystem;

namespace
{

constexpr std::array<const wchar_t*, 4> c_Keys = {L"Tot_atoms", L"World_width", L"Atom_colour_1_factor",
                                                  L"Atoms_min_radius"};

// A file that the profile functions read. Each has a name of its own: the system may remember the file that it read
// last.
class CProfileFile
{
public:
    explicit CProfileFile(const std::string& sBytes)
        : m_Path(fs::temp_directory_path() / (L"kinetarium-" + std::to_wstring(GetCurrentProcessId()) + L"-" +
                                              std::to_wstring(++s_uCount) + L".ini"))
    {
        std::ofstream(m_Path, std::ios::binary) << sBytes;
    }
    CProfileFile(const CProfileFile&) = delete;
    CProfileFile& operator=(const CProfileFile&) = delete;
    ~CProfileFile()
    {
        std::error_code ignored;
        fs::remove(m_Path, ignored);
    }

    std::int32_t ReadNumber(const wchar_t* sKey, std::int32_t defaultValue) const
    {
        return static_cast<std::int32_t>(
            GetPrivateProfileIntW(SettingsFile::c_sSection, sKey, defaultValue, m_Path.c_str()));
    }

    std::wstring ReadText(const wchar_t* sKey, const wchar_t* sDefault) const
    {
        std::array<wchar_t, SettingsFile::c_uMostTextCharacters + 1> buffer{};
        GetPrivateProfileStringW(SettingsFile::c_sSection, sKey, sDefault, buffer.data(),
                                 static_cast<DWORD>(buffer.size()), m_Path.c_str());
        return buffer.data();
    }

private:
    static inline unsigned s_uCount = 0;
    fs::path m_Path;
};

std::string Describe(const std::string& sBytes)
{
    return "the file is " + testing::PrintToString(sBytes);
}

// Returns the number of values that are not the default.
std::size_t CompareReaders(const std::string& sBytes)
{
    constexpr std::int32_t c_iDefault = -77;
    const CProfileFile file(sBytes);
    const CIniText text(sBytes);
    std::size_t uFound = 0;
    for (const wchar_t* const sKey : c_Keys)
    {
        const std::wstring sRead = file.ReadText(sKey, L"default");
        EXPECT_EQ(text.ReadText(sKey, L"default").Get(), sRead) << Describe(sBytes);
        EXPECT_EQ(text.ReadNumber(sKey, c_iDefault), file.ReadNumber(sKey, c_iDefault)) << Describe(sBytes);
        uFound += sRead != L"default" ? 1U : 0U;
    }
    return uFound;
}

} // namespace

TEST(ProfileFunctions, ReadTheSameFromGeneratedFiles)
{
    std::size_t uFound = 0;
    for (std::uint32_t uSeed = 1; uSeed <= 400 && !testing::Test::HasFailure(); ++uSeed)
    {
        const auto eEncoding = static_cast<EnumIniEncoding>(uSeed % c_uIniEncodingCount);
        CIniTextWriter writer(uSeed);
        uFound += CompareReaders(EncodeIni(writer.Write(eEncoding == EnumIniEncoding::Ansi), eEncoding));
    }
    EXPECT_GT(uFound, 300U); // the files are not all nonsense
}

TEST(ProfileFunctions, ReadTheSameFromEveryEncodingAndLineEnd)
{
    for (const std::u16string sEnd : {u"\n", u"\r\n", u"\r"})
    {
        const std::u16string sText = u"[Settings]" + sEnd + u"Tot_atoms=5" + sEnd + u"World_width=600" + sEnd;
        for (std::size_t u = 0; u < c_uIniEncodingCount; ++u)
        {
            EXPECT_EQ(CompareReaders(EncodeIni(sText, static_cast<EnumIniEncoding>(u))), 2U);
        }
    }
}

TEST(ProfileFunctions, ReadTheSameFromFilesThatAreCutOff)
{
    const std::u16string sText = u"; \u20AC\r\n[Settings]\r\nTot_atoms=51\rWorld_width='62'";
    for (const EnumIniEncoding eEncoding :
         {EnumIniEncoding::Utf8, EnumIniEncoding::Utf16LittleEndian, EnumIniEncoding::Utf16BigEndian})
    {
        const std::string sBytes = EncodeIni(sText, eEncoding);
        // Where a file ends within a character of two bytes, Wine takes the second one from beyond the file.
        const std::size_t uStep = eEncoding == EnumIniEncoding::Utf8 ? 1 : 2;
        for (std::size_t uLength = 0; uLength <= sBytes.size(); uLength += uStep)
        {
            CompareReaders(sBytes.substr(0, uLength));
        }
    }
}
