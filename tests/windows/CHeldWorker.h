#pragma once

#include "tests/windows/CReplacedImport.h"

// While an object of this class exists, a simulation's worker stops before it asks for its next frame, and goes on when
// the gate is opened. Only one object may exist at a time; make it before the application, so that it outlives it.
class CHeldWorker
{
public:
    CHeldWorker();
    ~CHeldWorker();
    CHeldWorker(const CHeldWorker&) = delete;
    CHeldWorker& operator=(const CHeldWorker&) = delete;

    // Waits until the worker stands at the gate; false if it does not come in time.
    bool Wait() const;

    // From now on the worker passes. May be called several times.
    void Open() const;

    // Closes the gate again.
    void Close() const;

    // The number of frames that the worker has asked for in vain: the user interface has not answered in time.
    int GetUnanswered() const;

private:
    CReplacedImport m_Send;
};
