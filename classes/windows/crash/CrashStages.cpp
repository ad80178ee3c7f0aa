#include "classes/windows/crash/CrashStages.h"

#include "classes/core/CKernelHandle.h"

#include <atomic>

namespace
{
constexpr DWORD c_dwDone = 0;
constexpr DWORD c_dwFailed = 1;
constexpr DWORD c_dwLook = 50; // ms between two looks for the window

// The thread of the latest step. Earlier ones cannot fault any more: they have ended or they hang.
std::atomic<DWORD> g_dwStageThread{0};

// Counts how often the step's window was seen. The thread that crashed must not look itself: looking takes locks that
// this thread, or a step that hangs, may hold.
std::atomic<unsigned> g_uSeen{0};

DWORD WINAPI RunStep(void* pStep)
{
    g_dwStageThread.store(GetCurrentThreadId());
    try
    {
        reinterpret_cast<void (*)()>(pStep)();
    }
    catch (...)
    {
        // Most likely there is no memory. The other steps may need less.
        return c_dwFailed;
    }
    return c_dwDone;
}

BOOL CALLBACK NoteVisible(HWND hWnd, LPARAM lParam)
{
    *reinterpret_cast<bool*>(lParam) |= IsWindowVisible(hWnd) != FALSE;
    return TRUE;
}

bool ShowsWindow(DWORD dwThread)
{
    bool bVisible = false;
    EnumThreadWindows(dwThread, NoteVisible, reinterpret_cast<LPARAM>(&bVisible));
    return bVisible;
}

EnumStageEnd GetEnd(HANDLE hThread)
{
    DWORD dwCode = c_dwFailed;
    GetExitCodeThread(hThread, &dwCode);
    return dwCode == c_dwDone ? EnumStageEnd::Done : EnumStageEnd::Failed;
}

// Runs until the end of the process.
DWORD WINAPI WatchWindow(void* pStepThread)
{
    const auto dwThread = static_cast<DWORD>(reinterpret_cast<ULONG_PTR>(pStepThread));
    for (;;)
    {
        if (ShowsWindow(dwThread))
        {
            ++g_uSeen;
        }
        Sleep(c_dwLook);
    }
}

// Waits until the thread has ended, or until no window of it has been seen for that many ms.
EnumStageEnd WaitForWindow(HANDLE hThread, DWORD dwPatience)
{
    unsigned uSeen = g_uSeen.load();
    for (DWORD dwWaited = 0; WaitForSingleObject(hThread, c_dwLook) == WAIT_TIMEOUT; dwWaited += c_dwLook)
    {
        if (uSeen != g_uSeen.load())
        {
            dwWaited = 0;
        }
        uSeen = g_uSeen.load();
        if (dwWaited >= dwPatience)
        {
            return EnumStageEnd::TimedOut;
        }
    }
    return GetEnd(hThread);
}

CKernelHandle Begin(void (*pStep)(), DWORD& dwThread) noexcept
{
    return CKernelHandle(CreateThread(nullptr, 0, RunStep, reinterpret_cast<void*>(pStep), 0, &dwThread));
}
} // namespace

EnumStageEnd RunCrashStage(void (*pStep)(), DWORD dwPatience) noexcept
{
    DWORD dwThread = 0;
    const CKernelHandle thread = Begin(pStep, dwThread);
    if (!thread)
    {
        return EnumStageEnd::Failed;
    }
    const bool bEnded = WaitForSingleObject(thread.Get(), dwPatience) == WAIT_OBJECT_0;
    return bEnded ? GetEnd(thread.Get()) : EnumStageEnd::TimedOut;
}

EnumStageEnd RunCrashStage_Window(void (*pStep)(), DWORD dwPatience) noexcept
{
    DWORD dwThread = 0;
    const CKernelHandle thread = Begin(pStep, dwThread);
    if (!thread)
    {
        return EnumStageEnd::Failed;
    }
    const CKernelHandle watch(
        CreateThread(nullptr, 0, WatchWindow, reinterpret_cast<void*>(static_cast<ULONG_PTR>(dwThread)), 0, nullptr));
    return WaitForWindow(thread.Get(), dwPatience);
}

void EndFaultedCrashStage() noexcept
{
    if (GetCurrentThreadId() == g_dwStageThread.load())
    {
        ExitThread(c_dwFailed);
    }
}
