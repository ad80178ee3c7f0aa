#pragma once

#include <filesystem>

// The build tree of the test program.
std::filesystem::path BuildTree();
// Its folder of programs.
std::filesystem::path BuiltPrograms();
// The files of the archive and of an installation.
std::filesystem::path HandedOutFolder();
// The installer of these files, and that of an earlier version, which had one more file.
std::filesystem::path BuiltInstaller();
std::filesystem::path BuiltEarlierInstaller();
