#pragma once

#include "tests/windows/CReplacedImport.h"
#include "tests/windows/CRunningApplication.h"

#include <functional>
#include <string>

// What the tests of faults share.

// Waits until three more frames were drawn by GDI; false when they were not.
bool WaitForFrames();

// Starts a simulation of eight atoms by the button, waits for frames, and stops it by the button.
void ExpectUsable(const CRunningApplication& application);

// The running application has no worker and nothing is under way; starts a simulation and returns when that is over.
void Start(const CRunningApplication& application);
void Stop(const CRunningApplication& application);
bool HasWorker(const CRunningApplication& application);

// Runs the application on a thread of its own until it ends by itself; false when it does not.
bool RunsToItsEnd();
