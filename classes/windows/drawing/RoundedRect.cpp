#include "classes/windows/drawing/RoundedRect.h"

#include "classes/core/ColourMath.h"
#include "classes/core/Percent.h"
#include "classes/windows/system/RectHelpers.h"

#include <algorithm>
#include <cmath>

namespace
{
constexpr double c_dPixelCentre = 0.5;

void FillPlain(HDC hDc, const RECT& rc, COLORREF cr)
{
    if (IsRectEmpty_Plain(rc))
    {
        return;
    }
    SetDCBrushColor(hDc, cr);
    FillRect(hDc, &rc, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

void MixPixel(HDC hDc, int x, int y, COLORREF cr, double dCoverage)
{
    const int iPercent = static_cast<int>(dCoverage * c_dPercent + c_dPixelCentre);
    if (iPercent <= 0)
    {
        return;
    }
    const COLORREF crBelow = GetPixel(hDc, x, y);
    if (crBelow != CLR_INVALID) // outside the clip
    {
        SetPixelV(hDc, x, y, BlendColours(crBelow, cr, iPercent));
    }
}
} // namespace

// Inside a corner's square the pixel's centre is compared with the circle; the distance to it, within half a pixel on
// either side, is very nearly the covered share.
double GetRoundedCoverage(int x, int y, int iWidth, int iHeight, int iRadius)
{
    if (x < 0 || y < 0 || x >= iWidth || y >= iHeight)
    {
        return 0.0;
    }
    const double dRadius = std::min({iRadius, iWidth / 2, iHeight / 2});
    const double dX = x + c_dPixelCentre;
    const double dY = y + c_dPixelCentre;
    const double dCornerX = std::max({dRadius - dX, dX - (iWidth - dRadius), 0.0});
    const double dCornerY = std::max({dRadius - dY, dY - (iHeight - dRadius), 0.0});
    if (dCornerX <= 0.0 || dCornerY <= 0.0)
    {
        return 1.0;
    }
    const double dDistance = std::sqrt(dCornerX * dCornerX + dCornerY * dCornerY);
    return std::clamp(dRadius - dDistance + c_dPixelCentre, 0.0, 1.0);
}

void FillRoundedRect(HDC hDc, const RECT& rc, int iRadius, COLORREF cr)
{
    const int iWidth = GetRectWidth(rc);
    const int iHeight = GetRectHeight(rc);
    if (iWidth <= 0 || iHeight <= 0)
    {
        return;
    }
    const int iCorner = std::max(std::min({iRadius, iWidth / 2, iHeight / 2}), 0);
    FillPlain(hDc, {rc.left, rc.top + iCorner, rc.right, rc.bottom - iCorner}, cr);
    FillPlain(hDc, {rc.left + iCorner, rc.top, rc.right - iCorner, rc.top + iCorner}, cr);
    FillPlain(hDc, {rc.left + iCorner, rc.bottom - iCorner, rc.right - iCorner, rc.bottom}, cr);
    for (int y = 0; y < iCorner; ++y)
    {
        for (int x = 0; x < iCorner; ++x)
        {
            const double dCoverage = GetRoundedCoverage(x, y, iWidth, iHeight, iRadius);
            MixPixel(hDc, rc.left + x, rc.top + y, cr, dCoverage);
            MixPixel(hDc, rc.right - 1 - x, rc.top + y, cr, dCoverage);
            MixPixel(hDc, rc.left + x, rc.bottom - 1 - y, cr, dCoverage);
            MixPixel(hDc, rc.right - 1 - x, rc.bottom - 1 - y, cr, dCoverage);
        }
    }
}

void FillRoundedFrame(HDC hDc, const RECT& rc, int iRadius, int iBorder, COLORREF crBorder, COLORREF crFace)
{
    FillRoundedRect(hDc, rc, iRadius, crBorder);
    const RECT rcFace{rc.left + iBorder, rc.top + iBorder, rc.right - iBorder, rc.bottom - iBorder};
    FillRoundedRect(hDc, rcFace, std::max(iRadius - iBorder, 0), crFace);
}
