#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

// The sums recorded under one scope text.
struct CProfileRow
{
    std::string sText;
    std::uint64_t uCalls{};
    std::int64_t llTotalMicroSeconds{};
    std::int64_t llLongestMicroSeconds{};
};

struct CProfileEntry;

// A profiling scope: its life counts as one call of the scope that its text names. The process keeps one set of sums
// per text for all threads. Opening a scope costs one look-up in a hash table under a mutex, closing it two atomic
// additions; the text is not kept.
class CProfile
{
public:
    // bRecord: the call is counted and timed. bLog: entry and exit are written to the debug output and, when
    // pDebugLog is not null, to the log.
    CProfile(const std::string& sText, std::wstring* pDebugLog, bool bRecord, bool bLog);
    ~CProfile();
    CProfile(const CProfile&) = delete;
    CProfile& operator=(const CProfile&) = delete;

    // All texts with at least one finished call since the last Reset, the largest total time first.
    static std::vector<CProfileRow> GetTable();

    // The rows as text in their order: a heading, then one line per row with calls, total, mean and longest time in
    // milliseconds, and the scope's text. Columns are aligned; every line ends with "\n".
    static std::string FormatTable(const std::vector<CProfileRow>& rows);

    // Starts all sums again at zero. Scopes that are open count towards the new sums when they close.
    static void Reset();

private:
    CProfileEntry* m_pEntry{};
    std::wstring* m_pDebugLog{};
    bool m_bLog{};
    std::wstring m_sLogText;
    std::chrono::steady_clock::time_point m_Start;
};
