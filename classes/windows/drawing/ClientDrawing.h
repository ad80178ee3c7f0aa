#pragma once

#include <windows.h>

#include <functional>

// For windows that draw their whole client area at once and have no parts of it erased before.

// Draws the client area, which begins at (0, 0), to a device context.
using ClientDrawing = std::function<void(HDC hDc, const RECT& rcClient)>;

// The answer to WM_PAINT: draws off-screen first, so that nothing half drawn is ever seen.
void PaintClient(HWND hWnd, const ClientDrawing& draw);

// The answer to WM_PRINTCLIENT: `wParam` is the device context of the one who wants a picture of the window.
void PrintClient(HWND hWnd, WPARAM wParam, const ClientDrawing& draw);
