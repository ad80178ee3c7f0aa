#pragma once

#include "classes/core/CRect.h"
#include "classes/core/CSize.h"
#include "simulation/CAtoms.h"

#include <windows.h>

#include <cstddef>
#include <functional>
#include <vector>

// A reference picture of the view, computed pixel by pixel. A pixel belongs to an atom if its centre lies inside the
// circle; later atoms cover earlier ones.
struct CExpectedPixel
{
    COLORREF cr{};
    bool bEdge{}; // so near to a circle's edge that anti-aliasing or rounding may change its colour
};

struct CExpectedScene
{
    CSize<int> size; // of the picture
    CRect rcWorld;   // in the picture's coordinates
    COLORREF crWorld{};
    std::function<COLORREF(int x, int y)> backdrop; // outside the world
    std::function<COLORREF(std::int32_t)> colour;   // of the atom with that index
    float fTolerance{};                             // pixels on both sides of an edge
};

class CExpectedPicture
{
public:
    CExpectedPicture(const CExpectedScene& scene, const CAtoms& atoms);

    const CExpectedPixel& Get(int x, int y) const;

private:
    // The index of a pixel; pixels are stored row by row.
    std::size_t IndexOf(int x, int y) const
    {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(m_size.cx) + static_cast<std::size_t>(x);
    }
    void DrawAtom(const CExpectedScene& scene, const CAtom& atom, COLORREF cr);

    CSize<int> m_size;
    std::vector<CExpectedPixel> m_pixels;
};
