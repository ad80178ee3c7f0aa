#pragma once

#include <windows.h>

#include <filesystem>
#include <string>
#include <vector>

// The program that crashes as it is told, in a process of its own.
class CCrashedProgram
{
public:
    // Starts it; the report goes to the folder. Throws std::runtime_error when it cannot be started.
    CCrashedProgram(const std::filesystem::path& folder, const std::wstring& sHow);
    ~CCrashedProgram();
    CCrashedProgram(const CCrashedProgram&) = delete;
    CCrashedProgram& operator=(const CCrashedProgram&) = delete;

    // Waits for its message box, reads its text and closes it. An empty text: the program has ended without one.
    std::wstring CloseMessage() const;

    // Waits for its end; 0 when it did not end in time.
    DWORD WaitForExit() const;

private:
    HANDLE m_hProcess = nullptr;
};

// A folder that is empty at first and gone at last.
class CEmptyFolder
{
public:
    CEmptyFolder();
    ~CEmptyFolder();
    CEmptyFolder(const CEmptyFolder&) = delete;
    CEmptyFolder& operator=(const CEmptyFolder&) = delete;

    const std::filesystem::path& GetPath() const { return m_path; }

    // Names in their order, of files with that ending; all of them without one.
    std::vector<std::string> List(const std::string& sEnding = {}) const;

    std::string Read(const std::string& sName) const;
    void Write(const std::string& sName, const std::string& sText) const;

private:
    std::filesystem::path m_path;
};
