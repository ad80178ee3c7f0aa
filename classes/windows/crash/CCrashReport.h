#pragma once

#include "classes/windows/crash/CCrashReportSettings.h"

// While the object lives, an uncaught error (a fault such as an access violation, or a C++ exception that ends in
// std::terminate) leaves a report and a minidump in a folder, which keeps the youngest five. A message box tells the
// user once, and the process ends with the fault's code, or with 3 after an exception. Nothing is sent anywhere.
//
// The thread that crashed may have no stack left, and other threads may hold any lock for ever. Therefore each step
// that can fail runs on a thread of its own. If it faults or hangs, the next step follows, after a time limit at the
// latest. In any case the process ends at last.
//
// A CExceptionHandler must exist: it calls this object. One object per process.
class CCrashReport
{
public:
    // Never throws: if there is no memory for the settings, the program runs without crash reports.
    explicit CCrashReport(const CCrashReportSettings& settings) noexcept;
    ~CCrashReport();
    CCrashReport(const CCrashReport&) = delete;
    CCrashReport& operator=(const CCrashReport&) = delete;

    // Call it once on every thread except the one that made this object. It reserves the little stack that the report
    // of a stack overflow needs to begin.
    static void PrepareThread() noexcept;
};
