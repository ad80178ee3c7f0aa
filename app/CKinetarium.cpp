#include "app/CKinetarium.h"

#include "diagnostics/Guard.h"

#include <winsock2.h>

namespace
{
constexpr WORD c_wSocketsVersion = MAKEWORD(2, 2);
} // namespace

CKinetarium::CKinetarium(std::wstring* pDebugLog, HINSTANCE hInstance)
{
    m_pDebugLog = pDebugLog;
    Traced({pDebugLog, __TIMESTAMP__}, [&] { Run(hInstance); });
}

void CKinetarium::Run(HINSTANCE hInstance)
{
    m_hInstance = hInstance;

    WSADATA sockets{};
    if (WSAStartup(c_wSocketsVersion, &sockets) != 0)
    {
        return;
    }

    if (InitializeWindow())
    {
        while (OperateMessagePump(nullptr))
        {
            WaitMessage();
        }
        // A window that is destroyed without being closed leaves the worker running.
        StopSimulation();
    }
    else if (m_hWnd != nullptr)
    {
        DestroyWindow(m_hWnd);
    }

    WSACleanup();
}

CKinetarium::~CKinetarium()
{
    Traced({m_pDebugLog, __TIMESTAMP__}, [&] {
        StopSimulation();
        m_hSimulationDone.Reset();
        m_pWorldView.reset();
        m_pDataCtrlGroup.reset();
    });
}

LRESULT CALLBACK CKinetarium::WndProcWrapper(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    return Guarded({nullptr, __TIMESTAMP__}, LRESULT{0}, [&] {
        // While the window is being created its user data holds no object yet.
        auto* pThis = reinterpret_cast<CKinetarium*>(GetWindowLongPtrW(hWnd, GWLP_USERDATA));
        if (pThis == nullptr)
        {
            return DefWindowProcW(hWnd, uMessage, wParam, lParam);
        }
        return pThis->WndProc(hWnd, uMessage, wParam, lParam);
    });
}
