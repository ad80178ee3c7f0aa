#include "headless/files/Interruption.h"

#include "headless/files/CHeldSignals.h"
#include "headless/files/TemporaryFiles.h"

#include <chrono>

#ifdef _WIN32
#include <windows.h>

#include <thread>
#else
#include <cerrno>
#include <csignal>
#include <ctime>
#include <poll.h>
#include <pthread.h>
#include <string_view>
#include <unistd.h>
#endif

namespace
{

using CClock = std::chrono::steady_clock;

// Shared with a signal handler.
std::atomic<int> g_iExitCode = 0;   // 0 until the first signal
std::atomic<int> g_iExtensions = 0; // the number of CExtendedTime objects
std::atomic<CClock::duration::rep> g_FirstSignal = 0;
static_assert(decltype(g_iExitCode)::is_always_lock_free && decltype(g_FirstSignal)::is_always_lock_free);

// The time for the program to end by itself.
constexpr std::chrono::milliseconds c_Grace{500};

// The time between two looks whether extended time is over.
constexpr std::chrono::milliseconds c_NextLook{50};

// A second signal so soon after the first belongs to the same demand: timeout(1) signals its command and then the
// command's group, a closing terminal sends two kinds.
constexpr std::chrono::milliseconds c_SameDemand{100};

// True for a second demand, which ends the program at once.
bool TakeSignal(int exitCode)
{
    const CClock::duration now = CClock::now().time_since_epoch();
    if (g_iExitCode == 0)
    {
        g_FirstSignal = now.count();
        g_iExitCode = exitCode;
        return false;
    }
    return now - CClock::duration(g_FirstSignal) > c_SameDemand;
}

} // namespace

CExtendedTime::CExtendedTime(bool bGranted) : m_iGranted(bGranted ? 1 : 0)
{
    g_iExtensions += m_iGranted;
}

CExtendedTime::~CExtendedTime()
{
    g_iExtensions -= m_iGranted;
}

#ifdef _WIN32

namespace
{

[[noreturn]] void EndAtOnce()
{
    // Held until the process is gone, so that it makes no further file.
    const CHeldSignals held;
    RemoveTemporaryFiles();
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(STATUS_CONTROL_C_EXIT));
    Sleep(INFINITE);
    __builtin_unreachable();
}

void EndAfterGrace()
{
    std::this_thread::sleep_for(c_Grace);
    while (g_iExtensions != 0)
    {
        std::this_thread::sleep_for(c_NextLook);
    }
    EndAtOnce();
}

BOOL WINAPI OnControl(DWORD uEvent)
{
    const bool bFirst = g_iExitCode == 0;
    if (TakeSignal(static_cast<int>(STATUS_CONTROL_C_EXIT)))
    {
        EndAtOnce();
    }
    if (bFirst)
    {
        // The system waits with the next event until this function has returned.
        std::thread(&EndAfterGrace).detach();
    }
    if (uEvent == CTRL_CLOSE_EVENT)
    {
        // The system ends the process when this function returns.
        Sleep(INFINITE);
    }
    return TRUE;
}

} // namespace

const std::atomic<int>& WatchForInterruption()
{
    // If the system refuses the handler, a signal just ends the program.
    SetConsoleCtrlHandler(&OnControl, TRUE);
    return g_iExitCode;
}

#else

namespace
{

constexpr int c_iSignalExitCode = 128;

pthread_t g_MainThread;
timer_t g_Timer;
bool g_bHasTimer = false;

// Called by a signal handler: only functions that POSIX allows there.
[[noreturn]] void EndAtOnce(int exitCode)
{
    RemoveTemporaryFiles();
    constexpr std::string_view c_sMessage = "error: interrupted\n";
    pollfd error = {STDERR_FILENO, POLLOUT, 0};
    // A pipe that nobody reads would keep the program alive.
    if (poll(&error, 1, 0) == 1 && (error.revents & POLLOUT) != 0)
    {
        static_cast<void>(!write(STDERR_FILENO, c_sMessage.data(), c_sMessage.size()));
    }
    _exit(exitCode);
}

timespec GetTime(std::chrono::nanoseconds duration)
{
    return {0, static_cast<long>(duration.count())};
}

void StartTimer()
{
    const itimerspec time = {GetTime(c_NextLook), GetTime(c_Grace)};
    if (g_bHasTimer)
    {
        timer_settime(g_Timer, 0, &time, nullptr);
    }
}

void OnSignal(int signal)
{
    const int error = errno;
    if (pthread_equal(pthread_self(), g_MainThread) == 0)
    {
        // The list of temporary files belongs to the main thread.
        pthread_kill(g_MainThread, signal);
    }
    else if (signal == SIGRTMIN)
    {
        if (g_iExitCode != 0 && g_iExtensions == 0)
        {
            EndAtOnce(g_iExitCode);
        }
    }
    else
    {
        const bool bFirst = g_iExitCode == 0;
        if (TakeSignal(c_iSignalExitCode + signal))
        {
            EndAtOnce(c_iSignalExitCode + signal);
        }
        if (bFirst)
        {
            StartTimer();
        }
    }
    errno = error;
}

void Handle(int signal)
{
    struct sigaction old = {};
    sigaction(signal, nullptr, &old);
    if (old.sa_handler != SIG_IGN)
    {
        struct sigaction action = {};
        action.sa_handler = &OnSignal;
        action.sa_mask = CHeldSignals::GetSet();
        // A call that waits goes on waiting: the timer ends it.
        action.sa_flags = SA_RESTART;
        sigaction(signal, &action, nullptr);
    }
}

} // namespace

const std::atomic<int>& WatchForInterruption()
{
    g_MainThread = pthread_self();
    sigevent event = {};
    event.sigev_notify = SIGEV_SIGNAL;
    event.sigev_signo = SIGRTMIN;
    // Without a timer the program still ends where it asks, and at the second signal.
    g_bHasTimer = timer_create(CLOCK_MONOTONIC, &event, &g_Timer) == 0;
    for (const int signal : {SIGRTMIN, SIGINT, SIGTERM, SIGHUP})
    {
        Handle(signal);
    }
    static_cast<void>(std::signal(SIGPIPE, SIG_IGN));
    static_cast<void>(std::signal(SIGXFSZ, SIG_IGN));
    return g_iExitCode;
}

#endif
