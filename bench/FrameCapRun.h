#pragma once

// Runs the run loop of the program with the default scene and a view that draws nothing, for that many seconds. Prints
// the iterations per second, which are close to 60 if the cap works. Returns the exit code.
int PrintFrameCap(double seconds);
