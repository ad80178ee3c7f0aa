#pragma once

#include <windows.h>

#include <filesystem>
#include <string>
#include <vector>

// The program that crashes on request, in a process of its own.
class CCrashedProgram
{
public:
    // Starts the program; the report goes to the folder. Throws std::runtime_error if the program cannot be started.
    CCrashedProgram(const std::filesystem::path& folder, const std::wstring& sHow);
    ~CCrashedProgram();
    CCrashedProgram(const CCrashedProgram&) = delete;
    CCrashedProgram& operator=(const CCrashedProgram&) = delete;

    // Waits for the message box, reads its text and closes it. The text is empty if the program has ended without a
    // message box.
    std::wstring CloseMessage() const;

    // Waits for the program's end; 0 if it does not end in time.
    DWORD WaitForExit() const;

private:
    HANDLE m_hProcess = nullptr;
};

// A folder that the constructor creates empty and the destructor deletes.
class CEmptyFolder
{
public:
    CEmptyFolder();
    ~CEmptyFolder();
    CEmptyFolder(const CEmptyFolder&) = delete;
    CEmptyFolder& operator=(const CEmptyFolder&) = delete;

    const std::filesystem::path& GetPath() const { return m_path; }

    // The sorted names of the files with that extension; of all files if it is empty.
    std::vector<std::string> List(const std::string& sEnding = {}) const;

    std::string Read(const std::string& sName) const;
    void Write(const std::string& sName, const std::string& sText) const;

private:
    std::filesystem::path m_path;
};
