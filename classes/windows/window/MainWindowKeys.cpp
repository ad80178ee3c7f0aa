#include "classes/windows/window/MainWindowKeys.h"

bool ForwardMainWindowKey(HWND hMain, const MSG& msg)
{
    const bool bMainWindowKey = msg.message == WM_KEYUP && (msg.wParam == VK_F11 || msg.wParam == VK_ESCAPE);
    if (!bMainWindowKey || hMain == nullptr || !IsChild(hMain, msg.hwnd))
    {
        return false;
    }
    const LRESULT iWanted = SendMessageW(msg.hwnd, WM_GETDLGCODE, msg.wParam, reinterpret_cast<LPARAM>(&msg));
    if ((iWanted & DLGC_WANTMESSAGE) != 0)
    {
        return false;
    }
    SendMessageW(hMain, WM_KEYUP, msg.wParam, msg.lParam);
    return true;
}
