#include "classes/windows/window/MainWindowKeys.h"

#include "classes/core/CLibrarySettings.h"

#include <algorithm>

namespace
{
bool IsMainWindowKey(WPARAM wKey)
{
    const auto& keys = GetLibrarySettings().mainWindowKeys;
    return std::find(keys.begin(), keys.end(), wKey) != keys.end();
}
} // namespace

bool ForwardMainWindowKey(HWND hMain, const MSG& msg)
{
    const bool bForMainWindow = msg.message == WM_KEYUP && IsMainWindowKey(msg.wParam);
    if (!bForMainWindow || hMain == nullptr || !IsChild(hMain, msg.hwnd))
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
