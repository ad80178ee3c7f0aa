#pragma once

// Measures three scenes while as many other threads of the same priority as the program may use compute all the time:
// on one thread, on several always, and as the program chooses. Takes that many seconds for each scene. Returns the
// exit code.
int PrintContention(double seconds);
