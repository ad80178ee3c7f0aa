#pragma once

#include "classes/core/CProfile.h"
#include "diagnostics/SourceLocation.h"

#include <string>
#include <type_traits>
#include <utility>

// The first line of every method:
//
//     return Traced({m_pDebugLog, __TIMESTAMP__}, false, [&] { ...; return true; });
//
// Traced opens a profiling scope named for the calling method and runs the body inside a catch-all guard: whatever is
// thrown is reported with the method's signature, file, line and time stamp, and the method ends with its failure
// value. Guarded is the guard without the scope, for what runs per message or per pair of atoms: while nothing is
// thrown it costs no more than the three stores that fill in the site.

// The method that is traced: where it stands, and which log hears of it.
struct CTraceSite
{
    // pDebugLog may be null. The location is that of the braces in which the site is written.
    constexpr CTraceSite(std::wstring* pLog, const char* sTimeStamp,
                         CSourceLocation location = CSourceLocation::current()) noexcept
        : pDebugLog(pLog), sBuildTimeStamp(sTimeStamp), where(location)
    {
    }

    std::wstring* pDebugLog;
    const char* sBuildTimeStamp;
    CSourceLocation where;
};

// "<signature> - Line <line> - File <path>", the name of the method's profiling scope.
std::string FormatScopeText(const CTraceSite& site);

// Reports the exception being handled as one that the site's guard caught. For guards only.
[[gnu::cold, gnu::noinline]] void ReportException(const CTraceSite& site) noexcept;

// Runs the body; whatever it throws is reported and swallowed.
template<class F>
void Guarded(const CTraceSite& site, F&& body) noexcept
{
    try
    {
        std::forward<F>(body)();
    }
    catch (...)
    {
        ReportException(site);
    }
}

// Returns what the body returns; whatever it throws is reported, and failure is returned instead.
template<class R, class F>
R Guarded(const CTraceSite& site, R failure, F&& body) noexcept
{
    static_assert(std::is_nothrow_move_constructible_v<R>, "the failure value must come back whatever happens");
    try
    {
        return std::forward<F>(body)();
    }
    catch (...)
    {
        ReportException(site);
    }
    return failure;
}

// As Guarded, inside a profiling scope, which also covers the reporting. A scope that cannot be opened is a failure of
// the method.
template<class F>
void Traced(const CTraceSite& site, F&& body) noexcept
{
    Guarded(site, [&] {
        const CProfile scope(FormatScopeText(site), site.pDebugLog, true, false);
        Guarded(site, std::forward<F>(body));
    });
}

template<class R, class F>
R Traced(const CTraceSite& site, R failure, F&& body) noexcept
{
    return Guarded(site, failure, [&] {
        const CProfile scope(FormatScopeText(site), site.pDebugLog, true, false);
        return Guarded(site, failure, std::forward<F>(body));
    });
}
