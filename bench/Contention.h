#pragma once

// Measures three scenes while every processor is busy with a thread of the same priority that computes all the time:
// on one thread, on several always, and as the program chooses. Takes that many seconds for each scene. Returns the
// exit code.
int PrintContention(double seconds);
