#pragma once

// Runs the program's run loop with the default scene and a view that draws nothing for that many seconds, and prints
// how many iterations per second came out: close to 60 where the cap works. Returns the exit code.
int PrintFrameCap(double seconds);
