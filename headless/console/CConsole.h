#pragma once

#include <atomic>
#include <ostream>

// The parts of the console that a run uses.
struct CConsole
{
    std::ostream& out;                      // standard output
    std::ostream& err;                      // standard error
    bool bErrIsTerminal{};                  // standard error is a terminal, so a progress bar is seen
    const std::atomic<int>* pInterrupted{}; // 0, or the exit code when the user has interrupted the run; null = never
};
