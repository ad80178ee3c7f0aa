#include "tests/view/windows/SoftwareDrawing.h"

#include "classes/core/CPoint.h"

#include <cmath>
#include <cstddef>

CExpectedPicture::CExpectedPicture(const CExpectedScene& scene, const CAtoms& atoms) : m_size(scene.size)
{
    for (int y = 0; y < m_size.cy; ++y)
    {
        for (int x = 0; x < m_size.cx; ++x)
        {
            const bool bWorld = ContainsHalfOpen(scene.rcWorld, CPoint<int>{x, y});
            m_pixels.push_back({bWorld ? scene.crWorld : scene.backdrop(x, y), false});
        }
    }
    for (std::int32_t i = 0; i < atoms.GetCount(); ++i)
    {
        DrawAtom(scene, atoms[i], scene.colour(i));
    }
}

void CExpectedPicture::DrawAtom(const CExpectedScene& scene, const CAtom& atom, COLORREF cr)
{
    constexpr double c_dHalf = 0.5; // distance of a pixel's centre from its corner
    const double dX = static_cast<double>(scene.rcWorld.left) + static_cast<double>(atom.x);
    const double dY = static_cast<double>(scene.rcWorld.top) + static_cast<double>(atom.y);
    const double dTolerance = static_cast<double>(scene.fTolerance);
    for (int y = 0; y < m_size.cy; ++y)
    {
        for (int x = 0; x < m_size.cx; ++x)
        {
            const double dDistance = std::hypot(x + c_dHalf - dX, y + c_dHalf - dY);
            CExpectedPixel& pixel = m_pixels[IndexOf(x, y)];
            if (dDistance <= atom.radius - dTolerance)
            {
                pixel = {cr, false};
            }
            else if (dDistance < atom.radius + dTolerance)
            {
                pixel.bEdge = true;
            }
        }
    }
}

const CExpectedPixel& CExpectedPicture::Get(int x, int y) const
{
    return m_pixels[IndexOf(x, y)];
}
