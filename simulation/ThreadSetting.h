#pragma once

#include <optional>
#include <string_view>

constexpr int c_iMaxThreads = 256;

// The number of threads for an iteration: that of the environment variable KINETARIUM_THREADS, otherwise one for each
// processor that this process may use.
int GetThreadCount();

// The value of that variable: a whole number from 1 to c_iMaxThreads in decimal digits, otherwise nothing.
std::optional<int> ParseThreadCount(std::wstring_view sSetting);
