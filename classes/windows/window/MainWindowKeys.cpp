#include "classes/windows/window/MainWindowKeys.h"

#include "classes/core/CLibrarySettings.h"

#include <algorithm>

bool IsMainWindowKey(WPARAM wKey)
{
    const auto& keys = GetLibrarySettings().mainWindowKeys;
    return std::find(keys.begin(), keys.end(), wKey) != keys.end();
}

void ForwardKeyUp(HWND hFrom, WPARAM wParam, LPARAM lParam)
{
    const HWND hMain = GetAncestor(hFrom, GA_ROOT);
    if (hMain != nullptr && hMain != hFrom)
    {
        SendMessageW(hMain, WM_KEYUP, wParam, lParam);
    }
}
