#include "classes/core/CProfile.h"

#include "classes/core/OutputDebugMessage.h"
#include "classes/core/Utf8.h"

#include <algorithm>
#include <atomic>
#include <fmt/format.h>
#include <mutex>
#include <unordered_map>

using Clock = std::chrono::steady_clock;

// The sums of one scope text. Entries are never removed, so that an open scope can keep its address.
struct CProfileEntry
{
    std::atomic<std::uint64_t> uCalls{};
    std::atomic<std::int64_t> llTotal{};
    std::atomic<std::int64_t> llLongest{};
};

namespace
{

struct CProfileStore
{
    std::mutex mutex;
    std::unordered_map<std::string, CProfileEntry> entries;
};

// Never destroyed, because scopes may still close while the process ends.
CProfileStore& GetStore()
{
    static CProfileStore& store = *new CProfileStore;
    return store;
}

CProfileEntry* FindEntry(const std::string& sText)
{
    CProfileStore& store = GetStore();
    const std::lock_guard lock(store.mutex);
    return &store.entries[sText];
}

void Record(CProfileEntry& entry, std::int64_t llDuration)
{
    entry.uCalls.fetch_add(1, std::memory_order_relaxed);
    entry.llTotal.fetch_add(llDuration, std::memory_order_relaxed);
    std::int64_t llLongest = entry.llLongest.load(std::memory_order_relaxed);
    while (llLongest < llDuration &&
           !entry.llLongest.compare_exchange_weak(llLongest, llDuration, std::memory_order_relaxed))
    {
    }
}

std::int64_t ToMicroSeconds(std::int64_t llClockTicks)
{
    return std::chrono::duration_cast<std::chrono::microseconds>(Clock::duration(llClockTicks)).count();
}

} // namespace

CProfile::CProfile(const std::string& sText, std::wstring* pDebugLog, bool bRecord, bool bLog)
    : m_pEntry(bRecord ? FindEntry(sText) : nullptr), m_pDebugLog(pDebugLog), m_bLog(bLog)
{
    if (m_bLog)
    {
        m_sLogText = WideFromUtf8(sText);
        OutputDebugMessage(m_pDebugLog, L"Enter %s\n", m_sLogText);
    }
    m_Start = Clock::now();
}

CProfile::~CProfile()
{
    if (m_pEntry != nullptr)
    {
        Record(*m_pEntry, (Clock::now() - m_Start).count());
    }
    if (m_bLog)
    {
        OutputDebugMessage(m_pDebugLog, L"Leave %s\n", m_sLogText);
    }
}

std::vector<CProfileRow> CProfile::GetTable()
{
    std::vector<CProfileRow> rows;
    {
        CProfileStore& store = GetStore();
        const std::lock_guard lock(store.mutex);
        for (const auto& [sText, entry] : store.entries)
        {
            const std::uint64_t uCalls = entry.uCalls.load(std::memory_order_relaxed);
            if (uCalls > 0)
            {
                rows.push_back({sText, uCalls, ToMicroSeconds(entry.llTotal.load(std::memory_order_relaxed)),
                                ToMicroSeconds(entry.llLongest.load(std::memory_order_relaxed))});
            }
        }
    }
    std::sort(rows.begin(), rows.end(), [](const CProfileRow& first, const CProfileRow& second) {
        if (first.llTotalMicroSeconds != second.llTotalMicroSeconds)
        {
            return first.llTotalMicroSeconds > second.llTotalMicroSeconds;
        }
        return first.sText < second.sText;
    });
    return rows;
}

std::string CProfile::FormatTable(const std::vector<CProfileRow>& rows)
{
    constexpr double dMicroSecondsPerMilliSecond = 1000.0;
    const auto toMilliSeconds = [](std::int64_t ll) { return static_cast<double>(ll) / dMicroSecondsPerMilliSecond; };
    std::string sTable =
        fmt::format("{:>12} {:>14} {:>12} {:>12}  {}\n", "calls", "total ms", "mean ms", "longest ms", "scope");
    for (const CProfileRow& row : rows)
    {
        const double dTotal = toMilliSeconds(row.llTotalMicroSeconds);
        const double dMean = row.uCalls > 0 ? dTotal / static_cast<double>(row.uCalls) : 0.0;
        sTable += fmt::format("{:>12} {:>14.3f} {:>12.3f} {:>12.3f}  {}\n", row.uCalls, dTotal, dMean,
                              toMilliSeconds(row.llLongestMicroSeconds), row.sText);
    }
    return sTable;
}

void CProfile::Reset()
{
    CProfileStore& store = GetStore();
    const std::lock_guard lock(store.mutex);
    for (auto& [sText, entry] : store.entries)
    {
        entry.uCalls.store(0, std::memory_order_relaxed);
        entry.llTotal.store(0, std::memory_order_relaxed);
        entry.llLongest.store(0, std::memory_order_relaxed);
    }
}
