#pragma once

#include <windows.h>

#include <filesystem>
#include <optional>
#include <string>

// Runs a program to its end with arguments that are handed over as they are, and returns its exit code. Throws
// std::runtime_error if it does not start, or has not ended in time.
DWORD RunToEnd(const std::filesystem::path& program, const std::wstring& sArguments);

// What the list of the installed programs, in the user's part of the registry, says of Kinetarium.
bool IsListed();
std::optional<std::wstring> ReadListedText(const std::wstring& sName);
std::optional<DWORD> ReadListedNumber(const std::wstring& sName);
// Does nothing if it is not there.
void RemoveFromList();

// The user's folders.
std::filesystem::path StartMenuEntry();
std::filesystem::path DesktopEntry();
// Where the installer puts the program unless it is told otherwise.
std::filesystem::path DefaultPlace();
// Where a shortcut leads.
std::filesystem::path TargetOf(const std::filesystem::path& shortcut);

// Uninstalls as the system's list does it, silently, and waits until it is done: the command itself returns as soon as
// a copy of the uninstaller has taken over. Throws std::runtime_error if it takes too long.
void UninstallAsListed();
