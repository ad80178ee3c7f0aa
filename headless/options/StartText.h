#pragma once

#include <optional>
#include <string>

struct COptions;

constexpr const char* c_sStandardInputName = "standard input"; // in messages and in the summary
constexpr const char* c_sRandomStart = "random";

// Where the atoms of a new run come from, for the summary: "random", the value of --start-at, or the file of
// --load-state.
std::string DescribeStart(const COptions& options);

// The value of --load-state that such a text came from; nullopt if it came from no state. A file that is called
// "random" or like a point counts as none.
std::optional<std::string> GetStartFile(const std::string& sStart);
