#pragma once

#include <cstddef>
#include <filesystem>
#include <set>
#include <string>

using CFileNames = std::set<std::string>;

// The paths of all files below a folder; none if there is no such folder. Waits while another program changes the
// folder: the uninstaller may still be removing the last empty folders when the system no longer lists the program.
CFileNames FilesIn(const std::filesystem::path& folder);
// The files of an installation.
CFileNames InstalledFiles();
// The count of files and folders directly in a folder; -1 if it cannot be read.
std::ptrdiff_t CountEntries(const std::filesystem::path& folder);

// The bytes of a file; none if it cannot be read.
std::string ReadFile(const std::filesystem::path& file);
// Makes the folder too if it is missing.
void WriteFile(const std::filesystem::path& file, const std::string& sText);
