#pragma once

#include "classes/core/PrintfFormat.h"

#include <array>
#include <mutex>
#include <span>
#include <string>
#include <string_view>

// Guards every debug log of the process: several threads append, one prunes.
std::mutex& DebugLog_GetMutex();

// Writes the text to the debug output (a debugger on Windows; on every system also the standard error stream when
// CLibrarySettings::sDebugOutputVariable is set in the environment) and appends it to the log when pDebugLog is not
// null. A diagnostic must not bring down the program: it leaves out the texts for which there is no memory.
void WriteDebugText(std::wstring* pDebugLog, std::wstring_view sText) noexcept;

// Formats, then writes as above. If the format does not fit its arguments, the format itself is written.
void WriteDebugMessage(std::wstring* pDebugLog, std::wstring_view sFormat,
                       std::span<const CPrintfArgument> arguments) noexcept;

// Writes a printf-style message; for the format see FormatPrintf. pDebugLog may be null.
template<class... A>
void OutputDebugMessage(std::wstring* pDebugLog, const wchar_t* sFormat, const A&... args) noexcept
{
    const std::array<CPrintfArgument, sizeof...(A)> arguments{CPrintfArgument(args)...};
    WriteDebugMessage(pDebugLog, sFormat, arguments);
}
