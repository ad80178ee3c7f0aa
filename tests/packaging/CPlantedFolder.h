#pragma once

#include <filesystem>
#include <set>
#include <string>

// A folder with a copy of a program and planted libraries beside it, as a user may have downloaded them. A planted
// library leaves a file when it is loaded. Wine prefers its own libraries; here it is told to look for others first, as
// Windows does. The destructor deletes the folder.
class CPlantedFolder
{
public:
    // The copy has the name of the program behind "planted-".
    explicit CPlantedFolder(const std::filesystem::path& program);
    ~CPlantedFolder();
    CPlantedFolder(const CPlantedFolder&) = delete;
    CPlantedFolder& operator=(const CPlantedFolder&) = delete;

    // The library has a name in lower case, with ".dll".
    void Plant(const std::string& sLibrary);
    // Where Wine looks for a library without its ending: "native,builtin", or nowhere.
    void Override(const std::wstring& sLibrary, const std::wstring& sOrder) const;
    void ExpectNoneWasLoaded() const;

    const std::filesystem::path& GetFolder() const { return m_folder; }
    const std::filesystem::path& GetProgram() const { return m_program; }
    const std::set<std::string>& GetLibraries() const { return m_libraries; }

private:
    std::filesystem::path m_folder;
    std::filesystem::path m_program;
    std::wstring m_sKey;
    std::set<std::string> m_libraries;
};

// The library that is planted.
std::filesystem::path PlantedFile();
