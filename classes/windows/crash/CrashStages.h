#pragma once

#include <windows.h>

// The steps of a crash report, each on a thread of its own.

enum class EnumStageEnd : unsigned char
{
    Done,
    Failed,   // it could not be started, threw or faulted
    TimedOut, // it still hangs somewhere
};

// Runs the step and waits for it, at most that many ms.
EnumStageEnd RunCrashStage(void (*pStep)(), DWORD dwPatience) noexcept;

// Runs a step that shows a window, and waits for it as long as the window is there. What shows none for that many ms
// never will.
EnumStageEnd RunCrashStage_Window(void (*pStep)(), DWORD dwPatience) noexcept;

// Ends the calling thread if it runs such a step. For the handler of a fault inside one.
void EndFaultedCrashStage() noexcept;
