#pragma once

#include "classes/core/CSize.h"
#include "simulation/RunStatistics.h"

#include <atomic>
#include <string>

class CAtoms;
class CCollisionGrid;
class CRandom;
struct IFinishedEvent;
struct IFrameSink;
struct IRunClock;

// The body of the simulation worker: iterates, has each frame drawn, keeps to at most 60 passes per second, and shows a
// statistics line about once a second, until running is false. Reads running before each pass and right after drawing:
// after a stop there is no further frame, and no line for the last part of a second.
//
// A pass is timed by the clock from before its iteration to after its drawing; then the loop waits on the clock.
//
// The finished event is reset first and set last, also without atoms and after an exception. An exception is reported
// and ends the run. pDebugLog may be null.
void RunLoop(CAtoms& atoms, CCollisionGrid& grid, const CSize<int>& world, CRandom& random,
             const std::atomic<bool>& running, IFinishedEvent& finished, IFrameSink& sink, IRunClock& clock,
             std::wstring* pDebugLog);
