#pragma once

#include "simulation/SimulationConstants.h"
#include "view/CAtomShape.h"
#include "view/IEllipseSource.h"

#include <array>
#include <cstddef>
#include <optional>

// The shapes that the system gives to atoms of every radius.
//
// After rounding, an atom of radius r is 2r or 2r + 1 pixels wide and as high: four shapes for each radius.
class CAtomShapes
{
public:
    // Learns the shapes from the system. Draws each several times: at other positions, across each edge of the picture
    // and in other colours. None if the system cannot draw, or if a shape depends on position or colour, has a row of
    // several runs, or has pixels of other colours: then only the system can draw the atoms.
    static std::optional<CAtomShapes> Learn(IEllipseSource& source);

    // The shape of an atom whose rectangle is iWidth x iHeight pixels; null if no atom of a legal radius has such a
    // rectangle.
    const CAtomShape* Find(int iWidth, int iHeight) const
    {
        const int iRadius = iWidth / 2;
        if (iRadius < 1 || iRadius > c_iMaxRadius || iHeight / 2 != iRadius)
        {
            return nullptr;
        }
        return &m_shapes[GetIndex(iWidth, iHeight)];
    }

private:
    static constexpr int c_iMaxRadius = c_uMaxRadius;
    static_assert(2 * c_iMaxRadius + 1 == CAtomShape::c_iMaxLength);

    static constexpr std::size_t GetIndex(int iWidth, int iHeight)
    {
        const int iRadius = iWidth / 2;
        return static_cast<std::size_t>((iRadius - 1) * 4 + (iWidth - 2 * iRadius) * 2 + (iHeight - 2 * iRadius));
    }

    CAtomShapes() = default;

    std::array<CAtomShape, static_cast<std::size_t>(4 * c_iMaxRadius)> m_shapes;
};
