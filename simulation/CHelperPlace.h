#pragma once

#include <algorithm>
#include <chrono>

// Decides when a helper changes to another processor: if it comes to work on that of the caller, where it only takes
// the caller's time. Some systems wake a thread on the processor of the one that wakes it, and leave both there for
// long if neither sleeps, even if another processor is idle.
//
// On a processor that another program uses, the helper has to wait for its share. So a change that takes long doubles
// the pause before the next one.
class CHelperPlace
{
public:
    // bEnough: there is a processor for each thread.
    explicit CHelperPlace(bool bEnough) : m_bEnough(bEnough) {}

    // Call it for each task.
    bool MustChange(int processorOfCaller, int processorOfHelper)
    {
        m_iLeft -= m_iLeft > 0 ? 1 : 0;
        return m_bEnough && m_iLeft == 0 && processorOfCaller == processorOfHelper;
    }

    // Call it after a change, with the time that it took.
    void NoteChange(std::chrono::steady_clock::duration duration)
    {
        m_iPause = duration < c_Long ? c_iShortestPause : std::min(2 * m_iPause, c_iLongestPause);
        m_iLeft = m_iPause;
    }

private:
    static constexpr std::chrono::microseconds c_Long{500}; // on an idle processor it takes some ten
    // Tasks, of which an iteration has four.
    static constexpr int c_iShortestPause = 4;
    static constexpr int c_iLongestPause = 16'384;

    bool m_bEnough;
    int m_iPause = c_iShortestPause;
    int m_iLeft = 0; // tasks before the next change
};
