#pragma once

#include <atomic>
#include <ostream>

// What a run needs of the console it was started from.
struct CConsole
{
    std::ostream& out;                       // standard output
    std::ostream& err;                       // standard error
    bool bErrIsTerminal{};                   // whether somebody watches standard error
    const std::atomic<bool>* pInterrupted{}; // becomes true when the user interrupts the run; null = never
};
