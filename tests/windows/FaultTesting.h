#pragma once

#include "tests/windows/CReplacedImport.h"
#include "tests/windows/CRunningApplication.h"

#include <functional>
#include <string>

// Helpers that the tests of faults share.

// Waits until the view has changed three times on the screen, whoever paints it; false if it does not in time. A
// simulation must be running.
bool WaitForFrames(const CRunningApplication& application);

// Starts a simulation of eight atoms with the button, waits for frames, and stops it with the button.
void ExpectUsable(const CRunningApplication& application);

// Expects an idle application without a worker; starts a simulation and returns when the start is over.
void Start(const CRunningApplication& application);
void Stop(const CRunningApplication& application);
bool HasWorker(const CRunningApplication& application);

// Runs the application on a thread of its own until it ends by itself; false if it does not.
bool RunsToItsEnd();
