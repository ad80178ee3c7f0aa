#pragma once

#include "classes/windows/crash/CCrashReportSettings.h"

// For as long as it lives, an error that nothing else caught (a fault such as an access violation, or a C++ exception
// that ends in std::terminate) leaves a report and a minidump in a folder, of which the youngest five are kept. The
// user is told once, in a message box, and the process ends with the fault's code, or with 3 after an exception.
// Nothing is sent anywhere.
//
// The thread that crashed may have no stack left, and other threads may hold any lock for ever. Therefore all that can
// fail is done by threads of its own, one step each, which may themselves fault or hang: the next step comes after a
// time limit anyway, and at last the end of the process.
//
// Needs a CExceptionHandler to be called by. One object per process.
class CCrashReport
{
public:
    // Never throws: without memory for the settings the program simply goes on without crash reports.
    explicit CCrashReport(const CCrashReportSettings& settings) noexcept;
    ~CCrashReport();
    CCrashReport(const CCrashReport&) = delete;
    CCrashReport& operator=(const CCrashReport&) = delete;

    // To be called once on every thread but the one that made this object, so that the report of an overflowing stack
    // has the little stack that its beginning needs.
    static void PrepareThread() noexcept;
};
