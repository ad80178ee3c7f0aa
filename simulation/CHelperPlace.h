#pragma once

#include <algorithm>

// Decides when a helper changes to another processor: if it comes to work on that of the caller, where it only takes
// the caller's time. Some systems leave two threads that never sleep on one processor for long, even if another one is
// idle.
//
// While other programs use the processors, helpers and caller meet again and again, and a helper that changes may have
// to wait. So each change doubles the pause before the next, until the helper has stayed apart for some time.
class CHelperPlace
{
public:
    // bEnough: there is a processor for each thread.
    explicit CHelperPlace(bool bEnough) : m_bEnough(bEnough) {}

    // Call it for each task.
    bool MustChange(int processorOfCaller, int processorOfHelper)
    {
        m_iPause -= m_iPause > 0 ? 1 : 0;
        if (processorOfCaller != processorOfHelper)
        {
            ++m_iApart;
            m_iNextPause = m_iApart >= c_iLongApart ? c_iShortestPause : m_iNextPause;
            return false;
        }
        m_iApart = 0;
        if (!m_bEnough || m_iPause > 0)
        {
            return false;
        }
        m_iPause = m_iNextPause;
        m_iNextPause = std::min(2 * m_iNextPause, c_iLongestPause);
        return true;
    }

private:
    // Tasks, of which an iteration has four.
    static constexpr int c_iShortestPause = 16;
    static constexpr int c_iLongestPause = 16'384;
    static constexpr int c_iLongApart = 256;

    bool m_bEnough;
    int m_iPause = 0;
    int m_iNextPause = c_iShortestPause;
    int m_iApart = 0; // tasks since the helper and the caller met
};
