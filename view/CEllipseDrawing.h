#pragma once

#include "classes/core/CColour.h"
#include "classes/core/CRect.h"
#include "classes/windows/system/Handles.h"

#include <windows.h>

// Draws filled ellipses with the stock DC pen and DC brush of a device context, which are selected for the life of this
// scope.
class CEllipseDrawing
{
public:
    explicit CEllipseDrawing(HDC hDc)
        : m_hDc(hDc), m_pen(hDc, GetStockObject(DC_PEN)), m_brush(hDc, GetStockObject(DC_BRUSH))
    {
    }

    // Pen and brush keep the colour until it is set again.
    void SetColour(ColourRef cr) const
    {
        SetDCPenColor(m_hDc, cr);
        SetDCBrushColor(m_hDc, cr);
    }

    void Draw(const CRect& rc) const { Ellipse(m_hDc, rc.left, rc.top, rc.right, rc.bottom); }

private:
    HDC m_hDc;
    CSelectObject m_pen;
    CSelectObject m_brush;
};
