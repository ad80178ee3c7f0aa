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

// Runs a step that shows a window, and waits as long as the window is there. Gives up if no window is seen for that
// many ms.
EnumStageEnd RunCrashStage_Window(void (*pStep)(), DWORD dwPatience) noexcept;

// Ends the calling thread if it runs such a step. Called by the handler of a fault inside a step.
void EndFaultedCrashStage() noexcept;
