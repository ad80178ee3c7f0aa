#include "simulation/ThreadSetting.h"

#include "classes/core/CountProcessors.h"
#include "classes/core/EnvironmentText.h"

#include <algorithm>
#include <string>

int GetThreadCount()
{
    const std::wstring sSetting = GetEnvironmentText("KINETARIUM_THREADS").value_or(std::wstring());
    return ParseThreadCount(sSetting).value_or(std::min(CountUsableProcessors(), c_iMaxThreads));
}

std::optional<int> ParseThreadCount(std::wstring_view sSetting)
{
    constexpr int c_iBase = 10;
    int threads = 0;
    for (const wchar_t cDigit : sSetting)
    {
        if (cDigit < L'0' || cDigit > L'9')
        {
            return std::nullopt;
        }
        threads = std::min(c_iBase * threads + (cDigit - L'0'), c_iMaxThreads + 1);
    }
    return threads >= 1 && threads <= c_iMaxThreads ? std::optional(threads) : std::nullopt;
}
