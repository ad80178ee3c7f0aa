#include "classes/windows/window/MainWindowKeys.h"

bool IsMainWindowKey(WPARAM wKey)
{
    return wKey == VK_F11 || wKey == VK_ESCAPE;
}

void ForwardKeyUp(HWND hFrom, WPARAM wParam, LPARAM lParam)
{
    const HWND hMain = GetAncestor(hFrom, GA_ROOT);
    if (hMain != nullptr && hMain != hFrom)
    {
        SendMessageW(hMain, WM_KEYUP, wParam, lParam);
    }
}
