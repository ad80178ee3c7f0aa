#pragma once

#include "classes/core/CColour.h"
#include "classes/core/CRect.h"
#include "view/CPixelArea.h"

#include <span>

// Draws single ellipses, as the system draws them, on a picture that shows nothing else.
class IEllipseSource
{
public:
    static constexpr int c_iSide = 72; // pixels; the largest shape of an atom with a margin on each side

    virtual ~IEllipseSource() = default;

    // The c_iSide x c_iSide pixels of the picture, rows from the top: an ellipse in the rectangle rc, drawn with a pen
    // and a brush of colour cr, on a background of colour crBackground. The ellipse may lie partly outside. The pixels
    // stay valid until the next call; there are none if the system cannot draw.
    virtual std::span<const Pixel> Draw(const CRect& rc, ColourRef cr, ColourRef crBackground) = 0;

protected:
    IEllipseSource() = default;
    IEllipseSource(const IEllipseSource&) = default;
    IEllipseSource& operator=(const IEllipseSource&) = default;
};
