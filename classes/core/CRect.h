#pragma once

#include "classes/core/CPoint.h"

// A rectangle of whole pixels. The right and bottom edges are exclusive, as in every Windows rectangle.
struct CRect
{
    int left{};
    int top{};
    int right{};
    int bottom{};

    constexpr int GetWidth() const { return right - left; }
    constexpr int GetHeight() const { return bottom - top; }

    // True if no pixel lies inside; also true if the edges are in the wrong order.
    constexpr bool IsEmpty() const { return right <= left || bottom <= top; }

    bool operator==(const CRect&) const = default;
};

// The pixels that both rectangles share; all zero when there are none.
CRect Intersect(const CRect& rcFirst, const CRect& rcSecond);

// True for left <= x < right and top <= y < bottom: the pixels of the rectangle.
bool ContainsHalfOpen(const CRect& rc, const CPoint<int>& pt);

// True for left <= x <= right and top <= y <= bottom: both edges count as inside.
bool ContainsInclusive(const CRect& rc, const CPoint<int>& pt);
