#pragma once

// Decides when a helper changes to another processor: if it comes to work on that of the caller. There it would only
// take the caller's time, and some systems leave two threads that never sleep on one processor for long, even if
// another one is idle. A change takes as long as thousands of instructions, so there is a pause between two.
class CHelperPlace
{
public:
    // bEnough: there is a processor for each thread.
    explicit CHelperPlace(bool bEnough) : m_bEnough(bEnough) {}

    // Call it for each task.
    bool MustChange(int processorOfCaller, int processorOfHelper)
    {
        m_iPause -= m_iPause > 0 ? 1 : 0;
        if (!m_bEnough || m_iPause > 0 || processorOfCaller != processorOfHelper)
        {
            return false;
        }
        m_iPause = c_iTasksBetween;
        return true;
    }

private:
    static constexpr int c_iTasksBetween = 16; // four iterations

    bool m_bEnough;
    int m_iPause = 0; // tasks
};
