#pragma once

#include "tests/endtoend/ProcessCounts.h"

#include <windows.h>

#include <chrono>
#include <filesystem>
#include <string>

// What a process holds; for finding leaks by comparing two moments of its life.
struct CProcessCounts
{
    int threads = 0;
    int handles = 0; // kernel handles
    CGdiCount gdiObjects;
    int userObjects = 0; // windows above all, menus, cursors
};

// A program in a process of its own, started by the constructor and, if it still runs then, ended by the destructor.
class CDrivenProgram
{
public:
    // Throws std::runtime_error if the system refuses to start it.
    explicit CDrivenProgram(const std::filesystem::path& program);
    ~CDrivenProgram();
    CDrivenProgram(const CDrivenProgram&) = delete;
    CDrivenProgram& operator=(const CDrivenProgram&) = delete;

    // Stays owned by this object.
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

// A folder of its own with a copy of the program, so that every start finds the default settings, and none overwrites
// those of another. Deleted at the end.
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
