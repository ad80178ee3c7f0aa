#pragma once

#include "classes/core/CFixedText.h"

#include <cstddef>
#include <string>
#include <vector>

// The names of the files that a crash leaves, and the choice of the files to delete.
//
// A crash leaves up to two files of one stem, "<program>-crash-<yyyymmdd>-<hhmmss>": the report (.txt) and the minidump
// (.dmp). The time is UTC, so that names sort by age in every time zone. If a stem is already taken, the next one gets
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

// The stem of a crash file's name; an empty text for every other name.
std::wstring GetCrashStem(const std::wstring& sFileName, const std::wstring& sProgram);

// Chooses which of a folder's files to delete so that uKept crashes remain. The oldest go first. The crash with the
// stem sCurrent counts as the youngest, whatever its name says, because a clock may have been set back; it always
// stays. A name that is not exactly a crash file's name is never returned.
std::vector<std::wstring> ChooseCrashFilesToDelete(const std::vector<std::wstring>& names, const std::wstring& sProgram,
                                                   const std::wstring& sCurrent, std::size_t uKept = c_uCrashesKept);
