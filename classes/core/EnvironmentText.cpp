#include "classes/core/EnvironmentText.h"

#include "classes/core/Utf8.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <cstdlib>
#endif

std::optional<std::wstring> GetEnvironmentText(const char* sName)
{
#ifdef _WIN32
    const std::wstring sWideName = WideFromUtf8(sName);
    std::wstring sValue;
    // The first call tells the length with its final zero; another thread may change the value between two calls.
    DWORD dwNeeded = GetEnvironmentVariableW(sWideName.c_str(), nullptr, 0);
    while (dwNeeded > sValue.size())
    {
        sValue.resize(dwNeeded);
        dwNeeded = GetEnvironmentVariableW(sWideName.c_str(), sValue.data(), static_cast<DWORD>(sValue.size()));
    }
    if (dwNeeded == 0 && (sValue.empty() || GetLastError() == ERROR_ENVVAR_NOT_FOUND))
        return std::nullopt;
    sValue.resize(dwNeeded);
    return sValue;
#else
    // Nothing in this program changes the environment, which is what makes reading it unsafe among threads.
    const char* sValue = std::getenv(sName); // NOLINT(concurrency-mt-unsafe)
    if (sValue == nullptr)
        return std::nullopt;
    return WideFromUtf8(sValue);
#endif
}
