#pragma once

#include <string_view>

// True when the environment variable KINETARIUM_CPU is "baseline": then only the baseline instruction set is used, for
// tests and for tools that do not know the newer ones.
bool IsBaselineForced();

// True for that value of the variable, letter for letter.
bool IsBaselineSetting(std::wstring_view sSetting);
