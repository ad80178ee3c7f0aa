#include "view/CEllipseSource.h"

#include "classes/windows/drawing/CPictureBits.h"
#include "view/CEllipseDrawing.h"

#include <algorithm>
#include <cstddef>

CEllipseSource::CEllipseSource() : m_pBits(CPictureBits::Create(c_iSide, c_iSide)), m_Dc(nullptr) {}

CEllipseSource::~CEllipseSource() = default;

std::span<const Pixel> CEllipseSource::Draw(const CRect& rc, ColourRef cr, ColourRef crBackground)
{
    if (m_pBits == nullptr || !m_Dc)
    {
        return {};
    }
    const std::span<Pixel> pixels(m_pBits->GetPixels(), static_cast<std::size_t>(c_iSide) * c_iSide);
    std::fill(pixels.begin(), pixels.end(), MakePixel(crBackground));
    const CSelectObject selected(m_Dc.Get(), m_pBits->GetBitmap());
    const CEllipseDrawing drawing(m_Dc.Get());
    drawing.SetColour(cr);
    drawing.Draw(rc);
    GdiFlush();
    return pixels;
}
