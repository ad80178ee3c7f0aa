#pragma once

#include <atomic>

// The end of the program on demand. The first signal (SIGINT, SIGTERM, SIGHUP; on Windows Ctrl+C, Ctrl+Break and the
// closing of the console) asks the program to end. If it has not ended after half a second, because it reads, writes or
// computes without asking, it is ended, and its temporary files are removed. A second signal does so at once.

// Begins to watch. To be called once, by the main thread, which alone makes temporary files. The result is 0 until a
// signal comes and then the exit code: 128 and the signal's number, on Windows STATUS_CONTROL_C_EXIT. A signal that is
// ignored because the caller of the program wants it so (nohup) stays ignored.
//
// Further, a write to a closed pipe or beyond the largest allowed file becomes an error like any other and no longer
// ends the program by a signal.
const std::atomic<int>& WatchForInterruption();

// While a granted one exists, only a second signal ends the program from outside. For work that has to be finished.
class CExtendedTime
{
public:
    explicit CExtendedTime(bool bGranted);
    CExtendedTime(const CExtendedTime&) = delete;
    CExtendedTime& operator=(const CExtendedTime&) = delete;
    ~CExtendedTime();

private:
    int m_iGranted;
};
