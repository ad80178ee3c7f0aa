#include "tests/packaging/CPlantedFolder.h"

#include "tests/packaging/FolderContents.h"
#include "tests/packaging/HandedOut.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <system_error>

std::filesystem::path PlantedFile()
{
    return BuildTree() / "tests-bin" / "kinetarium-planted.dll";
}

CPlantedFolder::CPlantedFolder(const std::filesystem::path& program)
    : m_folder(std::filesystem::temp_directory_path() /
               ("kinetarium planted " + std::to_string(GetCurrentProcessId()))),
      m_program(m_folder / (L"planted-" + program.filename().wstring())),
      m_sKey(L"Software\\Wine\\AppDefaults\\" + m_program.filename().wstring() + L"\\DllOverrides")
{
    std::filesystem::create_directories(m_folder);
    std::filesystem::copy_file(program, m_program);
}

CPlantedFolder::~CPlantedFolder()
{
    RegDeleteTreeW(HKEY_CURRENT_USER, m_sKey.c_str());
    std::error_code ignored;
    std::filesystem::remove_all(m_folder, ignored);
}

void CPlantedFolder::Plant(const std::string& sLibrary)
{
    if (m_libraries.insert(sLibrary).second)
    {
        std::filesystem::copy_file(PlantedFile(), m_folder / sLibrary);
        Override(std::filesystem::path(sLibrary).stem().wstring(), L"native,builtin");
    }
}

void CPlantedFolder::Override(const std::wstring& sLibrary, const std::wstring& sOrder) const
{
    RegSetKeyValueW(HKEY_CURRENT_USER, m_sKey.c_str(), sLibrary.c_str(), REG_SZ, sOrder.c_str(),
                    static_cast<DWORD>((sOrder.size() + 1) * sizeof(wchar_t)));
}

void CPlantedFolder::ExpectNoneWasLoaded() const
{
    for (const std::string& sFile : FilesIn(m_folder))
    {
        EXPECT_FALSE(sFile.ends_with(".loaded")) << sFile;
    }
}
