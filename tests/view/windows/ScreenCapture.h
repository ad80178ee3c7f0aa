#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>
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

// What the screen shows where the window's client area lies. The window must be on top.
CPixels CaptureClientArea(HWND hWnd);

// The left top width x height pixels of a device context.
CPixels CaptureContext(HDC hDc, int iX, int iY, int iWidth, int iHeight);
