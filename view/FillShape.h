#pragma once

#include "view/CAtomShape.h"
#include "view/CPixelArea.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>

// Several pixels of one colour, written at once: runs of a few pixels are the rule, and a loop over each pixel would
// cost more than the writing.
using CPixelGroup = std::array<Pixel, 4>;

inline constexpr int c_iPixelGroup = static_cast<int>(CPixelGroup().size());

inline void WritePixelGroup(Pixel* pFirst, const CPixelGroup& group)
{
    std::memcpy(pFirst, group.data(), sizeof(group));
}

// Fills n pixels from pFirst on; none if n is below 1. The last group may overlap those before. bShort: n is at most
// two groups, which saves the loop.
template<bool bShort>
void FillRun(Pixel* pFirst, int n, const CPixelGroup& group)
{
    if (n < c_iPixelGroup)
    {
        for (int i = 0; i < n; ++i)
        {
            pFirst[i] = group[0];
        }
        return;
    }
    WritePixelGroup(pFirst, group);
    if constexpr (!bShort)
    {
        for (int i = c_iPixelGroup; i < n - c_iPixelGroup; i += c_iPixelGroup)
        {
            WritePixelGroup(pFirst + i, group);
        }
    }
    WritePixelGroup(pFirst + n - c_iPixelGroup, group);
}

// Fills the shape's pixels as far as they lie in the area. (x, y) is the left top corner of the shape's rectangle; any
// corner between -2^30 and 2^30 is allowed.
inline void FillShape(const CPixelArea& area, int x, int y, const CAtomShape& shape, Pixel pixel)
{
    const CPixelGroup group{pixel, pixel, pixel, pixel};
    const int iWidth = area.iWidth; // the compiler cannot know that no pixel is part of the area's record
    const int iFirst = std::max(0, -y);
    const int iLast = std::min<int>(shape.height, area.iHeight - y);
    if (iFirst >= iLast || x >= iWidth || x <= -shape.width)
    {
        return;
    }
    const auto fillRows = [&](auto&& fillRow) {
        Pixel* pRow = area.GetRow(y + iFirst);
        for (int i = iFirst; i < iLast; ++i, pRow += iWidth)
        {
            fillRow(pRow, shape.runs[static_cast<std::size_t>(i)]);
        }
    };
    using CRun = CAtomShape::CRun;
    if (x < 0 || x > iWidth - shape.width)
    {
        fillRows([&](Pixel* pRow, CRun run) {
            const int iBegin = std::max(0, x + run.begin);
            FillRun<false>(pRow + iBegin, std::min(iWidth, x + run.end) - iBegin, group);
        });
    }
    else if (shape.width <= 2 * c_iPixelGroup)
    {
        fillRows([&](Pixel* pRow, CRun run) { FillRun<true>(pRow + x + run.begin, run.end - run.begin, group); });
    }
    else
    {
        fillRows([&](Pixel* pRow, CRun run) { FillRun<false>(pRow + x + run.begin, run.end - run.begin, group); });
    }
}
