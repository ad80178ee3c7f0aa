#include "classes/core/OutputDebugMessage.h"

#include "classes/core/CLibrarySettings.h"
#include "classes/core/EnvironmentText.h"
#include "classes/core/Utf8.h"

#include <cstdio>
#include <stdexcept>

#ifdef _WIN32
#include <windows.h>
#endif

namespace
{

void AppendToLog(std::wstring* pDebugLog, std::wstring_view sText)
{
    if (pDebugLog == nullptr)
    {
        return;
    }
    const std::lock_guard lock(DebugLog_GetMutex());
    *pDebugLog += sText;
}

void WriteToDebugger([[maybe_unused]] std::wstring_view sText)
{
#ifdef _WIN32
    OutputDebugStringW(std::wstring(sText).c_str());
#endif
}

void WriteToStandardError(std::wstring_view sText)
{
    const char* const sVariable = GetLibrarySettings().sDebugOutputVariable;
    if (sVariable == nullptr || !GetEnvironmentText(sVariable).has_value())
    {
        return;
    }
    const std::string sNarrow = Utf8FromWide(sText);
    // If this fails, there is nowhere left to report it.
    static_cast<void>(std::fwrite(sNarrow.data(), 1, sNarrow.size(), stderr));
    static_cast<void>(std::fflush(stderr));
}

// Each output is tried even if another one fails.
template<class F>
void Try(F&& write) noexcept
{
    try
    {
        write();
    }
    catch (...)
    {
        return;
    }
}

std::wstring FormatOrQuote(std::wstring_view sFormat, std::span<const CPrintfArgument> arguments)
{
    try
    {
        return FormatPrintf(sFormat, arguments);
    }
    catch (const std::runtime_error&)
    {
        return std::wstring(sFormat);
    }
}

} // namespace

std::mutex& DebugLog_GetMutex()
{
    // Never destroyed: the exception handler may still write while static objects are destroyed.
    static std::mutex& mutex = *new std::mutex;
    return mutex;
}

void WriteDebugText(std::wstring* pDebugLog, std::wstring_view sText) noexcept
{
    Try([&] { AppendToLog(pDebugLog, sText); });
    Try([&] { WriteToDebugger(sText); });
    Try([&] { WriteToStandardError(sText); });
}

void WriteDebugMessage(std::wstring* pDebugLog, std::wstring_view sFormat,
                       std::span<const CPrintfArgument> arguments) noexcept
{
    Try([&] { WriteDebugText(pDebugLog, FormatOrQuote(sFormat, arguments)); });
}
