#pragma once

#include <string>

// Reports the exception that is being handled; call it inside a catch handler. The report goes to the debug output and,
// if pDebugLog is not null, to the log: the exception's type and what(), the function, file and line that caught it,
// the time stamp of that source file, and sExtra (may be null). bShow: the user sees the report too. A failure of the
// report itself is swallowed, because a report must never do more harm than the exception.
void OnException(std::wstring* pDebugLog, const char* sFile, unsigned uLine, const char* sFunction,
                 const char* sBuildTimeStamp, const wchar_t* sExtra, bool bShow) noexcept;
