#pragma once

#include "classes/core/CFixedText.h"

#include <cstddef>
#include <string>
#include <vector>

// The names of the files that a crash leaves, and which of them may go.
//
// A crash leaves up to two files of one stem, "<program>-crash-<yyyymmdd>-<hhmmss>": the report (.txt) and the minidump
// (.dmp). The time is UTC, so that names sort by age whatever the clock's zone does. A stem that is taken already gets
// "-2", "-3" ... up to "-9".

inline constexpr const char* c_sCrashReportEnding = ".txt";
inline constexpr const char* c_sCrashDumpEnding = ".dmp";
inline constexpr unsigned c_uCrashStemAttempts = 9;
inline constexpr std::size_t c_uCrashesKept = 5;

// A moment in UTC.
struct CCrashTime
{
    unsigned year = 0;
    unsigned month = 0;
    unsigned day = 0;
    unsigned hour = 0;
    unsigned minute = 0;
    unsigned second = 0;
};

// Adds the stem; uAttempt counts from 1 to c_uCrashStemAttempts. Does not allocate.
void AddCrashStem(CFixedText& text, const char* sProgram, const CCrashTime& time, unsigned uAttempt) noexcept;

// The stem of a file name that such a crash may have left, and an empty text for every other name.
std::wstring GetCrashStem(const std::wstring& sFileName, const std::wstring& sProgram);

// Of the file names in a folder, those to delete so that uKept crashes remain: the oldest, but never the one with the
// stem sCurrent, which counts as the youngest whatever its name says (a clock may have been set back). Names that do
// not look exactly like those of a crash belong to somebody else and are never returned.
std::vector<std::wstring> ChooseCrashFilesToDelete(const std::vector<std::wstring>& names, const std::wstring& sProgram,
                                                   const std::wstring& sCurrent, std::size_t uKept = c_uCrashesKept);
