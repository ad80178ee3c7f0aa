#pragma once

#include <windows.h>

#include <functional>

// For windows that draw their whole client area at once, without erasing it before.

// Draws the client area, which begins at (0, 0), to a device context.
using ClientDrawing = std::function<void(HDC hDc, const RECT& rcClient)>;

// The answer to WM_PAINT: draws off-screen first, so that no half-drawn content ever shows.
void PaintClient(HWND hWnd, const ClientDrawing& draw);

// The answer to WM_PRINTCLIENT: `wParam` is the device context of the caller that wants a picture of the window.
void PrintClient(HWND hWnd, WPARAM wParam, const ClientDrawing& draw);
