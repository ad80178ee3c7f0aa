#pragma once

#include "classes/core/CRect.h"
#include "classes/core/CSize.h"
#include "simulation/CAtoms.h"

#include <windows.h>

#include <cstddef>
#include <functional>
#include <vector>

// A picture of the view made in the plainest way: pixel by pixel, a pixel belonging to an atom when its centre lies
// inside the circle, later atoms over earlier ones.
struct CExpectedPixel
{
    COLORREF cr{};
    bool bEdge{}; // so near to a circle's edge that smoothing or rounding may colour it otherwise
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
    // In the pixels, which stand row by row.
    std::size_t IndexOf(int x, int y) const
    {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(m_size.cx) + static_cast<std::size_t>(x);
    }
    void DrawAtom(const CExpectedScene& scene, const CAtom& atom, COLORREF cr);

    CSize<int> m_size;
    std::vector<CExpectedPixel> m_pixels;
};
