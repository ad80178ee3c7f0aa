#pragma once

#include <string>

// Reports the exception that is being handled, to be called inside a catch handler: its type and what(), the function,
// file and line that caught it, and the time stamp of that source file go to the debug output and, when pDebugLog is
// not null, to the log. sExtra (may be null) is added. bShow: the user sees the report too. A failure in here is
// swallowed: a report must never do more harm than what it reports.
void OnException(std::wstring* pDebugLog, const char* sFile, unsigned uLine, const char* sFunction,
                 const char* sBuildTimeStamp, const wchar_t* sExtra, bool bShow) noexcept;
