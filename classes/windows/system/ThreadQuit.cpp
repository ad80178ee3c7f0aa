#include "classes/windows/system/ThreadQuit.h"

#include <windows.h>

namespace
{
thread_local bool t_bQuitSeen = false;
} // namespace

bool ThreadQuit_WasSeen() noexcept
{
    return t_bQuitSeen;
}

void ThreadQuit_SetSeen() noexcept
{
    t_bQuitSeen = true;
}

void ThreadQuit_Forget() noexcept
{
    t_bQuitSeen = false;
    MSG msg;
    while (PeekMessageW(&msg, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE))
    {
    }
}
