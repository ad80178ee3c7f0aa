#include "tests/windows/sequences/CFrameGate.h"

#include "tests/windows/CRunningApplication.h"

#include <atomic>

namespace
{
std::atomic<bool> g_bHeld{false};
LRESULT(WINAPI* g_pSend)(HWND, UINT, WPARAM, LPARAM) = SendMessageW;

bool IsRunning(HWND hView)
{
    const HWND hMain = GetAncestor(hView, GA_ROOT);
    const auto* pApplication = reinterpret_cast<const CKinetarium*>(GetWindowLongPtrW(hMain, GWLP_USERDATA));
    return pApplication != nullptr && CKinetariumProbe::IsRunFlagSet(*pApplication);
}

LRESULT WINAPI HoldWorker(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    const bool bFrameOfWorker =
        uMessage == WM_ERASEBKGND && GetWindowThreadProcessId(hWnd, nullptr) != GetCurrentThreadId();
    if (bFrameOfWorker)
    {
        g_bHeld = true;
        while (IsRunning(hWnd))
        {
            Sleep(1);
        }
        g_bHeld = false;
    }
    return g_pSend(hWnd, uMessage, wParam, lParam);
}
} // namespace

CFrameGate::CFrameGate() : m_Send("SendMessageW", HoldWorker)
{
    g_pSend = m_Send.GetOriginal<LRESULT WINAPI(HWND, UINT, WPARAM, LPARAM)>();
}

bool CFrameGate::Wait() const
{
    // Sleeping between two looks would double the time of a sequence.
    const auto deadline = std::chrono::steady_clock::now() + CRunningApplication::c_Patience;
    while (!g_bHeld && std::chrono::steady_clock::now() < deadline)
    {
        std::this_thread::yield();
    }
    return g_bHeld;
}
