#include "tests/windows/CHeldWorker.h"

#include "tests/windows/CRunningApplication.h"

#include <atomic>

namespace
{
constexpr UINT c_uPatience = 10000; // ms; the program itself waits without a limit

std::atomic<bool> g_bOpen{true};
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
    g_bHeld = !g_bOpen;
    g_bOpen.wait(false);
    g_bHeld = false;
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
    g_bOpen = true;
    g_bOpen.notify_all();
}

void CHeldWorker::Close() const
{
    g_bOpen = false;
}

int CHeldWorker::GetUnanswered() const
{
    return g_iUnanswered;
}
