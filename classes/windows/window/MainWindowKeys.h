#pragma once

#include <windows.h>

// True for the keys in CLibrarySettings::mainWindowKeys. They take effect when they are released.
bool IsMainWindowKey(WPARAM wKey);

// Sends the released key on to the main window that hFrom is in. Nothing when hFrom is the main window itself.
void ForwardKeyUp(HWND hFrom, WPARAM wParam, LPARAM lParam);
