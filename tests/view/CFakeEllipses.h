#pragma once

#include "view/IEllipseSource.h"

#include <cstddef>
#include <functional>
#include <span>
#include <vector>

// A system that draws ellipses in any way that a test wants.
class CFakeEllipses final : public IEllipseSource
{
public:
    // The colour that the system gives to a pixel of the picture.
    struct CPixelQuestion
    {
        CRect rc;
        int x{};
        int y{};
        ColourRef cr{};
        ColourRef crBackground{};
    };
    using Answer = std::function<ColourRef(const CPixelQuestion&)>;

    explicit CFakeEllipses(Answer answer) : m_answer(std::move(answer)) {}

    std::span<const Pixel> Draw(const CRect& rc, ColourRef cr, ColourRef crBackground) override
    {
        m_pixels.clear();
        for (int y = 0; y < c_iSide; ++y)
        {
            for (int x = 0; x < c_iSide; ++x)
            {
                m_pixels.push_back(MakePixel(m_answer({rc, x, y, cr, crBackground})));
            }
        }
        ++m_iDrawn;
        return m_pixels;
    }

    int GetDrawn() const { return m_iDrawn; }

    // Whether the pixel's centre lies in the ellipse of the rectangle.
    static bool IsInside(const CRect& rc, int x, int y)
    {
        const double dX = (2 * x + 1 - rc.left - rc.right) / static_cast<double>(rc.GetWidth());
        const double dY = (2 * y + 1 - rc.top - rc.bottom) / static_cast<double>(rc.GetHeight());
        return dX * dX + dY * dY <= 1.0;
    }

    // A system as it should be.
    static ColourRef DrawRegular(const CPixelQuestion& question)
    {
        return IsInside(question.rc, question.x, question.y) ? question.cr : question.crBackground;
    }

private:
    Answer m_answer;
    std::vector<Pixel> m_pixels;
    int m_iDrawn = 0;
};
