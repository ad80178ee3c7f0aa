#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

// Pixels as they lie on the screen or in a device context, row by row from the top.
struct CPixels
{
    int iWidth{};
    int iHeight{};
    std::vector<std::uint32_t> pixels; // 0x00RRGGBB

    COLORREF GetColour(int x, int y) const;
    bool operator==(const CPixels&) const = default;
};

// The client area in screen coordinates, left edge on the left also where the x axis of the window runs to the left.
RECT GetClientAreaOnScreen(HWND hWnd);

// What the screen shows where the window's client area lies. The window must be on top.
CPixels CaptureClientArea(HWND hWnd);

// Captures the client area again and again until accept is content, and gives up after some seconds. What is drawn
// reaches the screen when the display gets round to it: a render target has a thread of its own, and a new window is
// shown a moment after it is made. Before each capture draw may draw the frame again.
CPixels CaptureUntil(HWND hWnd, const std::function<void()>& draw, const std::function<bool(const CPixels&)>& accept);

// The left top width x height pixels of a device context.
CPixels CaptureContext(HDC hDc, int iX, int iY, int iWidth, int iHeight);
