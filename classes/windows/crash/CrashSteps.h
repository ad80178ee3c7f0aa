#pragma once

#include "classes/windows/crash/CCrashReportSettings.h"

#include <windows.h>

#include <cstddef>

// The steps of a crash report, in their order, and their data. Each runs on a thread of its own, never two at a time.
// No step may depend on an earlier one, except for the data that the first one sets.

inline constexpr std::size_t c_uCrashLineSize = 512;

// The crash of this process.
struct CCrash
{
    const CCrashReportSettings* settings = nullptr;
    DWORD thread = 0;
    bool mainThread = false;
    const char* exception = nullptr; // its type and text; null for a fault
    EXCEPTION_RECORD record{};
    CONTEXT context{};
    EXCEPTION_POINTERS pointers{};

    // Set by the first step.
    char error[c_uCrashLineSize] = {};
    char stem[c_uCrashLineSize] = {};
    HANDLE report = INVALID_HANDLE_VALUE; // the end of the process closes it: no destructor may do so in mid-report
    DWORD openError = ERROR_SUCCESS;
};

// Static: after a crash there may be no heap.
CCrash& GetCrash() noexcept;

// Writes all facts that need no look at the stack, so that they are safely on disk before anything else is tried.
void CrashStep_Report();

// One line for a debugger.
void CrashStep_DebugOutput();

void CrashStep_Stack();
void CrashStep_Dump();
void CrashStep_DeleteOld();
void CrashStep_TellUser();
