#include "headless/files/CHeldSignals.h"

#ifdef _WIN32

#include <mutex>

namespace
{

// Windows runs its handlers in threads of their own.
std::recursive_mutex g_Mutex;

} // namespace

CHeldSignals::CHeldSignals() noexcept
{
    g_Mutex.lock();
}

CHeldSignals::~CHeldSignals()
{
    g_Mutex.unlock();
}

#else

#include <initializer_list>

CHeldSignals::CHeldSignals() noexcept
{
    const sigset_t set = GetSet();
    pthread_sigmask(SIG_BLOCK, &set, &m_Old);
}

CHeldSignals::~CHeldSignals()
{
    pthread_sigmask(SIG_SETMASK, &m_Old, nullptr);
}

sigset_t CHeldSignals::GetSet() noexcept
{
    sigset_t set;
    sigemptyset(&set);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGRTMIN})
    {
        sigaddset(&set, signal);
    }
    return set;
}

#endif
