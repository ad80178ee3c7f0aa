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
    // The length includes the terminating zero, so it is never 0 for a variable that is set.
    const DWORD dwSize = GetEnvironmentVariableW(sWideName.c_str(), nullptr, 0);
    if (dwSize == 0)
    {
        return std::nullopt;
    }
    std::wstring sValue(dwSize, L'\0');
    const DWORD dwLength = GetEnvironmentVariableW(sWideName.c_str(), sValue.data(), dwSize);
    // Longer only if another thread has just changed it; the old value is then gone.
    sValue.resize(dwLength < dwSize ? dwLength : 0);
    return sValue;
#else
    // Reading is safe: this program never changes its environment, so no thread can do so meanwhile.
    const char* sValue = std::getenv(sName); // NOLINT(concurrency-mt-unsafe)
    if (sValue == nullptr)
    {
        return std::nullopt;
    }
    return WideFromUtf8(sValue);
#endif
}
