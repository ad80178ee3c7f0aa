#pragma once

#include <filesystem>
#include <string>

// Where a path leads. Paths are UTF-8.

// The path with links replaced by what they lead to, which need not exist. A circle of links is left as it is.
std::filesystem::path FollowLinks(const std::filesystem::path& path);

// The folder that the path's file is in or would be made in.
std::filesystem::path GetFolder(const std::filesystem::path& path);

// Whether the system takes two names in one folder for the same.
bool AreSameNames(const std::filesystem::path& first, const std::filesystem::path& second);

// Whether two paths lead to one file, also when none exists yet.
bool AreSameFile(const std::string& sFirst, const std::string& sSecond);
