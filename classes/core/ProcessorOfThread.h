#pragma once

// The number of the processor on which this thread runs at the moment; negative if the system does not tell. On Windows
// it counts within the processor group of the thread.
int GetProcessorOfThread();

// Lets this thread go on on another processor than that one, if it may use others. Afterwards it may use the same
// processors as before, so the system can move it back. Takes some ten microseconds, or until the other processor has
// time for it. Does nothing on a Windows machine with several processor groups.
void LeaveProcessor(int processor);
