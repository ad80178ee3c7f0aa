#pragma once

#include "tests/endtoend/ProcessCounts.h"

#include <windows.h>

#include <chrono>
#include <filesystem>
#include <string>

// The resources that a process holds. Two counts at different times reveal leaks.
struct CProcessCounts
{
    int threads = 0;
    int handles = 0; // kernel handles
    CGdiCount gdiObjects;
    int userObjects = 0; // mainly windows, menus and cursors
};

// A program in a process of its own. The constructor starts it; the destructor terminates it if it still runs.
class CDrivenProgram
{
public:
    // Throws std::runtime_error if the system refuses to start it.
    explicit CDrivenProgram(const std::filesystem::path& program);
    ~CDrivenProgram();
    CDrivenProgram(const CDrivenProgram&) = delete;
    CDrivenProgram& operator=(const CDrivenProgram&) = delete;

    // This object keeps the ownership.
    HANDLE GetHandle() const { return m_hProcess; }
    DWORD GetProcessId() const { return m_uProcessId; }
    bool IsRunning() const;
    // The exit code; throws std::runtime_error if the program has not ended in time.
    DWORD WaitForExit(std::chrono::milliseconds patience) const;
    CProcessCounts Count() const;
    // True if a module of that file name (in lower case) is loaded from a path that contains `sFolder`.
    bool HasModuleFrom(const std::wstring& sFile, const std::wstring& sFolder) const;

private:
    HANDLE m_hProcess = nullptr;
    DWORD m_uProcessId = 0;
};

// A copy of the program in a folder of its own, so that it starts with the default settings and changes no other copy's
// settings. The destructor deletes the folder.
class CProgramCopy
{
public:
    explicit CProgramCopy(const std::filesystem::path& program);
    ~CProgramCopy();
    CProgramCopy(const CProgramCopy&) = delete;
    CProgramCopy& operator=(const CProgramCopy&) = delete;

    const std::filesystem::path& GetPath() const { return m_program; }

private:
    std::filesystem::path m_folder;
    std::filesystem::path m_program;
};
