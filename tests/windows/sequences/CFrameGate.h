#pragma once

#include "tests/windows/CReplacedImport.h"

// While an object of this class exists, each worker stops when it asks for the first frame of a simulation, and goes on
// when the simulation is stopped. So the atoms have moved by exactly one step. Only one object may exist at a time;
// make it before the application, so that it outlives it.
class CFrameGate
{
public:
    CFrameGate();
    CFrameGate(const CFrameGate&) = delete;
    CFrameGate& operator=(const CFrameGate&) = delete;

    // Waits until a worker stands at the gate; false if none comes in time.
    bool Wait() const;

private:
    CReplacedImport m_Send;
};
