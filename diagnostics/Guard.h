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
// Traced opens a profiling scope with the name of the calling method and runs the body inside a catch-all guard. The
// guard reports any exception with the method's signature, file, line and time stamp, and returns the method's failure
// value. Guarded is the guard without the scope, for methods that run per message or per pair of atoms: without an
// exception it costs only the three stores that fill in the site.

// The traced method: its place in the source, and the log for its reports.
struct CTraceSite
{
    // pLog may be null. The location is that of the braces in which the caller writes the site.
    constexpr CTraceSite(std::wstring* pLog, const char* sTimeStamp,
                         CSourceLocation location = CSourceLocation::current()) noexcept
        : pDebugLog(pLog), sBuildTimeStamp(sTimeStamp), where(location)
    {
    }

    std::wstring* pDebugLog;
    const char* sBuildTimeStamp;
    CSourceLocation where;
};

// "<signature> - Line <line> - File <path>": the name of the method's profiling scope.
std::string FormatScopeText(const CTraceSite& site);

// Reports the exception that is being handled. Only for the guards below, inside a catch block.
[[gnu::cold, gnu::noinline]] void ReportException(const CTraceSite& site) noexcept;

// Runs the body; reports and swallows any exception.
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

// Returns the result of the body. Reports any exception, and then returns failure.
template<class R, class F>
R Guarded(const CTraceSite& site, R failure, F&& body) noexcept
{
    static_assert(std::is_nothrow_move_constructible_v<R>, "returning the failure value must not throw");
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

// Like Guarded, inside a profiling scope, which also covers the reporting. If the scope cannot be opened, reports that
// and returns failure without running the body.
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
