#pragma once

#include <optional>
#include <string>

// The value of an environment variable, nullopt if it is not set. The name is plain ASCII.
std::optional<std::wstring> GetEnvironmentText(const char* sName);
