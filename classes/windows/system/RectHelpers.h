#pragma once

#include <windows.h>

#include "classes/core/CRect.h"

// Small arithmetic on the system's rectangles. All of it accepts rectangles in any coordinate system, empty ones too.

constexpr int GetRectWidth(const RECT& rc) noexcept
{
    return rc.right - rc.left;
}
constexpr int GetRectHeight(const RECT& rc) noexcept
{
    return rc.bottom - rc.top;
}
constexpr bool IsRectEmpty_Plain(const RECT& rc) noexcept
{
    return rc.right <= rc.left || rc.bottom <= rc.top;
}

// Moves a rectangle by dx, dy pixels; a null pointer is left alone.
constexpr void MoveRect(RECT* pRect, int dx, int dy) noexcept
{
    if (pRect == nullptr)
    {
        return;
    }
    pRect->left += dx;
    pRect->right += dx;
    pRect->top += dy;
    pRect->bottom += dy;
}

// True inside the rectangle, its left and top edges included, its right and bottom edges not: the system's own rule.
constexpr bool PointInRect(const RECT& rc, const POINT& pt) noexcept
{
    return pt.x >= rc.left && pt.x < rc.right && pt.y >= rc.top && pt.y < rc.bottom;
}

constexpr CRect ToRect(const RECT& rc) noexcept
{
    CRect rcResult;
    rcResult.left = rc.left;
    rcResult.top = rc.top;
    rcResult.right = rc.right;
    rcResult.bottom = rc.bottom;
    return rcResult;
}

constexpr RECT ToRECT(const CRect& rc) noexcept
{
    return RECT{rc.left, rc.top, rc.right, rc.bottom};
}
