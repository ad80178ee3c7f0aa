#pragma once

#include "classes/windows/system/Handles.h"
#include "view/IEllipseSource.h"

#include <windows.h>

#include <memory>

class CPictureBits;

// Lets GDI draw the ellipses, with the DC pen and the DC brush.
class CEllipseSource final : public IEllipseSource
{
public:
    // Without memory for the picture, Draw gives no pixels. Throws std::bad_alloc.
    CEllipseSource();
    ~CEllipseSource() override;
    CEllipseSource(const CEllipseSource&) = delete;
    CEllipseSource& operator=(const CEllipseSource&) = delete;

    std::span<const Pixel> Draw(const CRect& rc, ColourRef cr, ColourRef crBackground) override;

private:
    std::unique_ptr<CPictureBits> m_pBits;
    CMemoryDc m_Dc;
};
