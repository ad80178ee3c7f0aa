#include "classes/windows/system/SafeLibrarySearch.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <string>

namespace
{
// A copy of a system library under a new name beside the test program, where a default search looks first.
class SafeLibrarySearch : public testing::Test
{
protected:
    SafeLibrarySearch()
    {
        std::array<wchar_t, MAX_PATH> path{};
        GetSystemDirectoryW(path.data(), MAX_PATH);
        const std::filesystem::path library = std::filesystem::path(path.data()) / "version.dll";
        GetModuleFileNameW(nullptr, path.data(), MAX_PATH);
        m_sName = L"kinetarium-planted-" + std::to_wstring(GetCurrentProcessId()) + L".dll";
        m_file = std::filesystem::path(path.data()).replace_filename(m_sName);
        std::filesystem::copy_file(library, m_file, std::filesystem::copy_options::overwrite_existing);
    }
    ~SafeLibrarySearch() override
    {
        std::error_code ignored;
        std::filesystem::remove(m_file, ignored);
    }

    static bool CanLoad(const std::wstring& sName)
    {
        const HMODULE hLibrary = LoadLibraryW(sName.c_str());
        if (hLibrary == nullptr)
        {
            return false;
        }
        FreeLibrary(hLibrary);
        return true;
    }

    std::wstring m_sName;
    std::filesystem::path m_file;
};
} // namespace

TEST_F(SafeLibrarySearch, FindsSystemLibrariesByNameButNoLibrariesBesideTheProgram)
{
    ASSERT_TRUE(CanLoad(m_sName));
    ASSERT_TRUE(SearchLibrariesInSystemFolderOnly());
    EXPECT_FALSE(CanLoad(m_sName));
    EXPECT_TRUE(CanLoad(m_file));
    EXPECT_TRUE(CanLoad(L"version.dll"));
}
