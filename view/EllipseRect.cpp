#include "view/EllipseRect.h"

#include "classes/core/Dbl.h"
#include "view/ColourRules.h"

namespace
{

int RoundToPixel(float fPosition)
{
    return TruncateToInt32(Dbl_Round(static_cast<double>(fPosition), 0));
}

} // namespace

CRect GetEllipseRect(const CAtom& atom, const CPoint<int>& ptWorld)
{
    const float fX = static_cast<float>(ptWorld.x) + atom.x;
    const float fY = static_cast<float>(ptWorld.y) + atom.y;
    const float fRadius = static_cast<float>(atom.radius);
    return CRect{RoundToPixel(fX - fRadius), RoundToPixel(fY - fRadius), RoundToPixel(fX + fRadius),
                 RoundToPixel(fY + fRadius)};
}
