#pragma once

#include "classes/core/CWaitTimer.h"
#include "simulation/IRunClock.h"

// The clock and the timer of the system.
class CRunClock final : public IRunClock
{
public:
    CDateTime GetNow() override { return CDateTime(); }
    void WaitMicroSeconds(std::int64_t llMicroSeconds) override { m_WaitTimer.WaitMicroSeconds(llMicroSeconds); }

private:
    CWaitTimer m_WaitTimer;
};
