#pragma once

#include "classes/core/CPoint.h"
#include "classes/core/CRect.h"
#include "simulation/CAtom.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>

// Pixels around an atom's exact circle that its drawing may still touch: one for anti-aliasing or for the rounding of
// the enclosing rectangle, and one more for the rounding of single-precision sums. With a smaller margin, atoms at the
// border of the view lose their outermost pixels; a larger one only passes a few invisible atoms to the painter.
constexpr float c_fDrawingMarginPixels = 2.0F;

// The part of the world in which drawing an atom can change a pixel of the view.
//
// An atom is in it when |x - cx| <= w + r and |y - cy| <= h + r, where (cx, cy) is the middle of the visible rectangle
// in world coordinates and w, h are half its sides plus the drawing margin. For worlds of up to a million pixels the
// single-precision sums, here and in the painters, are wrong by less than a quarter of a pixel, which the margin
// covers. An atom whose position is not finite is never in it, so the painters only get finite positions.
class CVisibleArea
{
public:
    // rcVisible: visible pixels, in view coordinates; nothing is visible in an empty one.
    // ptWorld: left top corner of the world, in view coordinates.
    CVisibleArea(const CRect& rcVisible, const CPoint<int>& ptWorld)
        : m_fCentreX(Middle(rcVisible.left, rcVisible.right, ptWorld.x)),
          m_fCentreY(Middle(rcVisible.top, rcVisible.bottom, ptWorld.y)),
          m_fHalfWidth(Half(rcVisible.left, rcVisible.right)),
          m_fHalfHeight(Half(rcVisible.top, rcVisible.bottom))
    {
    }

    // Without a branch: atoms are in no order, so a branch would often be mispredicted, which costs more than the rest.
    bool Shows(const CAtom& atom) const
    {
        const float fRadius = static_cast<float>(atom.radius);
        const bool bColumn = std::fabs(atom.x - m_fCentreX) <= m_fHalfWidth + fRadius;
        const bool bRow = std::fabs(atom.y - m_fCentreY) <= m_fHalfHeight + fRadius;
        return static_cast<bool>(static_cast<unsigned>(bColumn) & static_cast<unsigned>(bRow));
    }

private:
    static float Middle(int iLow, int iHigh, int iOrigin)
    {
        return (static_cast<float>(iLow) + static_cast<float>(iHigh)) / 2.0F - static_cast<float>(iOrigin);
    }

    static float Half(int iLow, int iHigh)
    {
        if (iHigh <= iLow)
        {
            return -std::numeric_limits<float>::infinity();
        }
        return (static_cast<float>(iHigh) - static_cast<float>(iLow)) / 2.0F + c_fDrawingMarginPixels;
    }

    float m_fCentreX;
    float m_fCentreY;
    float m_fHalfWidth;
    float m_fHalfHeight;
};

// Calls draw(atom) for the visible ones among the atoms [first, last) of pAtoms, in array order.
//
// Works block by block: it first collects the indices of the visible atoms without a branch, then draws these.
template<class Draw>
void ForEachVisibleAtom(const CAtom* pAtoms, std::int32_t first, std::int32_t last, const CVisibleArea area,
                        Draw&& draw)
{
    constexpr std::int32_t c_iBlockLength = 512; // 2 kB of indices: they stay in the first-level cache
    std::array<std::int32_t, static_cast<std::size_t>(c_iBlockLength)> visible;
    for (std::int32_t begin = first; begin < last;)
    {
        const std::int32_t end = last - begin > c_iBlockLength ? begin + c_iBlockLength : last;
        std::size_t uVisible = 0;
        for (std::int32_t i = begin; i < end; ++i)
        {
            visible[uVisible] = i;
            uVisible += area.Shows(pAtoms[i]) ? 1U : 0U;
        }
        for (std::size_t u = 0; u < uVisible; ++u)
        {
            draw(pAtoms[visible[u]]);
        }
        begin = end;
    }
}
