#pragma once

#include "view/CPixelArea.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

// The pixels that an ellipse of a given width and height covers: one unbroken run in each row.
struct CAtomShape
{
    static constexpr int c_iMaxLength = 65; // pixels; a radius of 32 on a pixel's border

    // [begin, end) in pixels from the left edge of the ellipse's rectangle; an empty run has begin == end.
    struct CRun
    {
        std::uint8_t begin{};
        std::uint8_t end{};
    };

    std::uint8_t width{};
    std::uint8_t height{}; // the number of runs in use
    std::array<CRun, static_cast<std::size_t>(c_iMaxLength)> runs{};
};

// Fills n pixels from pFirst on. Runs of a few pixels are the rule. So no loop goes pixel by pixel: four at a time, and
// the last four may overlap those before.
inline void FillRun(Pixel* pFirst, int n, Pixel pixel)
{
    constexpr int c_iGroup = 4;
    if (n < c_iGroup)
    {
        for (int i = 0; i < n; ++i)
        {
            pFirst[i] = pixel;
        }
        return;
    }
    const std::array<Pixel, static_cast<std::size_t>(c_iGroup)> group{pixel, pixel, pixel, pixel};
    for (int i = 0; i < n - c_iGroup; i += c_iGroup)
    {
        std::memcpy(pFirst + i, group.data(), sizeof(group));
    }
    std::memcpy(pFirst + n - c_iGroup, group.data(), sizeof(group));
}

// Fills the shape's pixels as far as they lie in the area. (x, y) is the left top corner of the shape's rectangle; any
// corner between -2^30 and 2^30 is allowed.
inline void FillShape(const CPixelArea& area, int x, int y, const CAtomShape& shape, Pixel pixel)
{
    const int iFirst = std::max(0, -y);
    const int iLast = std::min<int>(shape.height, area.iHeight - y);
    if (iFirst >= iLast)
    {
        return;
    }
    const int iWidth = area.iWidth;
    Pixel* pRow = area.GetRow(y + iFirst);
    if (x >= 0 && x <= iWidth - shape.width)
    {
        pRow += x;
        for (int i = iFirst; i < iLast; ++i, pRow += iWidth)
        {
            const CAtomShape::CRun run = shape.runs[static_cast<std::size_t>(i)];
            FillRun(pRow + run.begin, run.end - run.begin, pixel);
        }
        return;
    }
    for (int i = iFirst; i < iLast; ++i, pRow += iWidth)
    {
        const CAtomShape::CRun run = shape.runs[static_cast<std::size_t>(i)];
        const int iBegin = std::max(0, x + run.begin);
        FillRun(pRow + iBegin, std::min(iWidth, x + run.end) - iBegin, pixel);
    }
}
