#pragma once

#include <windows.h>

#include <filesystem>
#include <optional>
#include <string>

// Runs a program with these arguments, unchanged, waits for its end and returns its exit code. Throws
// std::runtime_error if it does not start or does not end within a minute.
DWORD RunToEnd(const std::filesystem::path& program, const std::wstring& sArguments);

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

// Runs the silent command of the system's list and waits until Kinetarium is uninstalled: the command itself returns as
// soon as it has started a copy of the uninstaller. Throws std::runtime_error if it takes too long.
void UninstallAsListed();
