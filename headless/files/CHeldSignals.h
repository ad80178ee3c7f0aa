#pragma once

#ifndef _WIN32
#include <csignal>
#endif

// While one exists, no signal of Interruption.h is handled in this thread, and on Windows in no thread. For a few
// instructions that a handler must see whole or not at all.
class CHeldSignals
{
public:
    CHeldSignals() noexcept;
    CHeldSignals(const CHeldSignals&) = delete;
    CHeldSignals& operator=(const CHeldSignals&) = delete;
    ~CHeldSignals();

#ifndef _WIN32
    // The signals that are held: those of Interruption.h and that of its timer.
    static sigset_t GetSet() noexcept;

private:
    sigset_t m_Old;
#endif
};
