#pragma once

// Whether this thread has taken a quit message out of its queue. A quit message can be taken only once, but several
// pumps may be running inside one another when it comes: each of them asks here, so each of them ends.

bool ThreadQuit_WasSeen() noexcept;
void ThreadQuit_SetSeen() noexcept;

// A thread that makes a new main window starts over: the mark is cleared, and a quit message that is left of the
// former window is taken out of the queue.
void ThreadQuit_Forget() noexcept;
