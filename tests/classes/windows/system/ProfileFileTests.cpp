#include "classes/windows/system/ProfileFile.h"

#include "classes/core/CKernelHandle.h"
#include "classes/core/CProfile.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace
{
// A folder of its own for the file, and one recorded scope.
class ProfileFile : public testing::Test
{
protected:
    ProfileFile()
    {
        m_folder = std::filesystem::temp_directory_path() / ("profile-" + std::to_string(GetCurrentProcessId()));
        std::filesystem::remove_all(m_folder);
        std::filesystem::create_directories(m_folder);
        m_file = m_folder / L"gr\u00F6\u00DFe.txt";
        CProfile::Reset();
        const CProfile scope("void F\xC3\xBC()", nullptr, true, false);
    }
    ~ProfileFile() override
    {
        CProfile::Reset();
        std::error_code ignored;
        std::filesystem::remove_all(m_folder, ignored);
    }

    std::string Read() const
    {
        std::ifstream file(m_file, std::ios::binary);
        std::ostringstream text;
        text << file.rdbuf();
        return text.str();
    }

    std::ptrdiff_t CountFiles() const
    {
        const std::filesystem::directory_iterator files(m_folder);
        return std::distance(begin(files), end(files));
    }

    std::filesystem::path m_folder;
    std::filesystem::path m_file;
};
} // namespace

TEST_F(ProfileFile, TheTableReplacesAnOlderFile)
{
    std::ofstream(m_file) << std::string(5000, 'x');
    const std::string sTable = CProfile::FormatTable(CProfile::GetTable());
    ASSERT_NE(sTable.find("  void F\xC3\xBC()\n"), std::string::npos) << sTable;
    EXPECT_TRUE(WriteProfile(m_file.wstring()));
    EXPECT_EQ(Read(), sTable);
    EXPECT_EQ(CountFiles(), 1);
}

TEST_F(ProfileFile, AFolderThatDoesNotExistIsReported)
{
    EXPECT_FALSE(WriteProfile((m_folder / "nowhere" / "profile.txt").wstring()));
    EXPECT_EQ(CountFiles(), 0);
}

TEST_F(ProfileFile, AFileInUseIsNotChangedAndNoTemporaryFileRemains)
{
    std::ofstream(m_file) << "older";
    {
        const CKernelHandle hInUse(
            CreateFileW(m_file.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
        ASSERT_TRUE(hInUse);
        EXPECT_FALSE(WriteProfile(m_file.wstring()));
    }
    EXPECT_EQ(Read(), "older");
    EXPECT_EQ(CountFiles(), 1);
}
