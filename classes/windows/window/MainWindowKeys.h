#pragma once

#include <windows.h>

// The keys that mean something to the main window wherever the focus is: F11 (full screen on and off) and Escape (full
// screen off). They take effect when they are released.
bool IsMainWindowKey(WPARAM wKey);

// Sends the released key on to the main window that hFrom is in. Nothing when hFrom is the main window itself.
void ForwardKeyUp(HWND hFrom, WPARAM wParam, LPARAM lParam);
