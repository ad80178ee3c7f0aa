#include "classes/core/CRect.h"

#include <algorithm>

CRect Intersect(const CRect& rcFirst, const CRect& rcSecond)
{
    const CRect rcShared{std::max(rcFirst.left, rcSecond.left), std::max(rcFirst.top, rcSecond.top),
                         std::min(rcFirst.right, rcSecond.right), std::min(rcFirst.bottom, rcSecond.bottom)};
    return rcShared.IsEmpty() ? CRect{} : rcShared;
}

bool ContainsHalfOpen(const CRect& rc, const CPoint<int>& pt)
{
    return rc.left <= pt.x && pt.x < rc.right && rc.top <= pt.y && pt.y < rc.bottom;
}

bool ContainsInclusive(const CRect& rc, const CPoint<int>& pt)
{
    return rc.left <= pt.x && pt.x <= rc.right && rc.top <= pt.y && pt.y <= rc.bottom;
}
