#pragma once

#include <windows.h>

#include "classes/core/CRect.h"

// Small arithmetic on the system's rectangles, in any coordinate system, empty ones included.

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

// Moves a rectangle by dx, dy pixels; does nothing for a null pointer.
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

// True if the point is inside the rectangle. As the system has it, the left and top edges are inside, the right and
// bottom edges are not.
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
