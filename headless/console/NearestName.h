#pragma once

#include <string_view>
#include <vector>

// The name that a wrong one was probably meant to be: the first of those that the fewest changes turn into it, where a
// change inserts, removes or replaces one character. Letters of either case are the same. Empty if more than half of
// its characters would have to change.
std::wstring_view FindNearestName(std::wstring_view sWrong, const std::vector<std::wstring_view>& names);
