#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>

// The text of every source (.h, .cpp) by its path from the root of the tree, with "/" between folders.
using CSourceTree = std::map<std::string, std::string, std::less<>>;

// Reads the sources below a folder. Skips the top-level folders build and out, and every folder whose name begins with
// a dot. Throws std::runtime_error or std::filesystem::filesystem_error.
CSourceTree ReadSourceTree(const std::filesystem::path& root);

// The bytes of a file. Throws std::runtime_error naming a file that cannot be read.
std::string ReadWholeFile(const std::filesystem::path& path);

// The folder of a source; empty for a source in the root.
std::string GetFolder(std::string_view sPath);
