#include "tests/windows/CHeldWorker.h"

#include "tests/windows/CRunningApplication.h"

#include <atomic>

namespace
{
constexpr UINT c_uPatience = 10000; // ms; the program itself waits without a limit

const HANDLE g_hOpen = CreateEventW(nullptr, TRUE, TRUE, nullptr); // manual reset: set while the gate is open
std::atomic<bool> g_bHeld{false};
std::atomic<int> g_iUnanswered{0};
LRESULT(WINAPI* g_pSend)(HWND, UINT, WPARAM, LPARAM) = SendMessageW;

LRESULT WINAPI HoldWorker(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    const bool bFrameOfWorker =
        uMessage == WM_ERASEBKGND && GetWindowThreadProcessId(hWnd, nullptr) != GetCurrentThreadId();
    if (!bFrameOfWorker)
    {
        return g_pSend(hWnd, uMessage, wParam, lParam);
    }
    if (WaitForSingleObject(g_hOpen, 0) != WAIT_OBJECT_0)
    {
        g_bHeld = true;
        WaitForSingleObject(g_hOpen, INFINITE);
        g_bHeld = false;
    }
    DWORD_PTR uResult = 0;
    if (SendMessageTimeoutW(hWnd, uMessage, wParam, lParam, SMTO_NORMAL, c_uPatience, &uResult) == 0)
    {
        ++g_iUnanswered;
    }
    return static_cast<LRESULT>(uResult);
}
} // namespace

CHeldWorker::CHeldWorker() : m_Send("SendMessageW", HoldWorker)
{
    g_pSend = m_Send.GetOriginal<LRESULT WINAPI(HWND, UINT, WPARAM, LPARAM)>();
    g_iUnanswered = 0;
    Close();
}

CHeldWorker::~CHeldWorker()
{
    Open();
}

bool CHeldWorker::Wait() const
{
    return CRunningApplication::Poll([] { return g_bHeld.load(); });
}

void CHeldWorker::Open() const
{
    SetEvent(g_hOpen);
}

void CHeldWorker::Close() const
{
    ResetEvent(g_hOpen);
}

int CHeldWorker::GetUnanswered() const
{
    return g_iUnanswered;
}
