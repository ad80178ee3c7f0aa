#pragma once

#include <windows.h>

#include <filesystem>
#include <optional>
#include <string>

// Runs a program with these arguments, unchanged, waits for its end and returns its exit code. Throws
// std::runtime_error if it does not start or does not end within a minute.
DWORD RunToEnd(const std::filesystem::path& program, const std::wstring& sArguments);
// The same; also takes what the program writes to its standard output.
DWORD RunToEnd(const std::filesystem::path& program, const std::wstring& sArguments, std::string& sOutput);

// The entry of Kinetarium in the list of installed programs, in the user's part of the registry.
bool IsListed();
std::optional<std::wstring> ReadListedText(const std::wstring& sName);
std::optional<DWORD> ReadListedNumber(const std::wstring& sName);
// Does nothing if there is no entry.
void RemoveFromList();

// The user's folders.
std::filesystem::path StartMenuEntry();
std::filesystem::path DesktopEntry();
// The installer's default folder.
std::filesystem::path DefaultPlace();
// The target of a shortcut.
std::filesystem::path TargetOf(const std::filesystem::path& shortcut);
void MakeShortcut(const std::filesystem::path& shortcut, const std::filesystem::path& target);

// A program that has been started and not waited for. Throws std::runtime_error if it does not start.
class CStartedProgram
{
public:
    // The standard output goes to `hOutput`, an inheritable handle, unless it is null.
    CStartedProgram(const std::filesystem::path& program, const std::wstring& sArguments, HANDLE hOutput = nullptr);
    ~CStartedProgram(); // ends it if it still runs
    CStartedProgram(const CStartedProgram&) = delete;
    CStartedProgram& operator=(const CStartedProgram&) = delete;

    DWORD GetProcessId() const { return m_uProcessId; }
    // Waits at most so many milliseconds; returns true if it has ended.
    bool HasEnded(DWORD uPatience) const;
    DWORD GetExitCode() const;
    // Ends it at once, as the system does when it is switched off, and waits until it is gone.
    void Kill() const;

private:
    HANDLE m_hProcess = nullptr;
    DWORD m_uProcessId = 0;
};

// Runs the silent command of the system's list and waits until Kinetarium is uninstalled: the command itself returns as
// soon as it has started a copy of the uninstaller. Throws std::runtime_error if it takes too long.
void UninstallAsListed();
