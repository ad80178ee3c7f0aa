#pragma once

#include <filesystem>

// The build tree that the test program lies in.
std::filesystem::path BuildTree();
// Its finished programs.
std::filesystem::path BuiltPrograms();
// What is handed out, as it is in the archive and in an installation.
std::filesystem::path HandedOutFolder();
// The installer of that, and of an earlier version that had a file more.
std::filesystem::path BuiltInstaller();
std::filesystem::path BuiltEarlierInstaller();
