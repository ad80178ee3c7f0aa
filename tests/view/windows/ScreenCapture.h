#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

// The pixels of the screen or of a device context, row by row from the top.
struct CPixels
{
    int iWidth{};
    int iHeight{};
    std::vector<std::uint32_t> pixels; // 0x00RRGGBB

    COLORREF GetColour(int x, int y) const;
    bool operator==(const CPixels&) const = default;
};

// The client area in screen coordinates. Its left edge is on the left even in a mirrored window.
RECT GetClientAreaOnScreen(HWND hWnd);

// Captures the window's client area from the screen. The window must be on top.
CPixels CaptureClientArea(HWND hWnd);

// Captures the client area repeatedly until accept returns true, and gives up after some seconds. Drawings reach the
// screen with a delay: a render target has a thread of its own, and a new window becomes visible a moment after its
// creation. Before each capture, draw may draw the frame again.
CPixels CaptureUntil(HWND hWnd, const std::function<void()>& draw, const std::function<bool(const CPixels&)>& accept);

// The top left width x height pixels of a device context.
CPixels CaptureContext(HDC hDc, int iX, int iY, int iWidth, int iHeight);
