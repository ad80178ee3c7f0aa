#pragma once

// Records whether this thread has taken a quit message out of its queue. The message can be taken only once, but
// several nested pumps may be running when it comes. Each of them asks here, so each of them ends.

bool ThreadQuit_WasSeen() noexcept;
void ThreadQuit_SetSeen() noexcept;

// For a thread that makes a new main window: clears the mark, and takes a quit message left by the former window out of
// the queue.
void ThreadQuit_Forget() noexcept;
