#include "view/CAtomShapes.h"

#include "classes/core/CPoint.h"
#include "view/FillShape.h"

#include <algorithm>

namespace
{

constexpr int c_iSide = IEllipseSource::c_iSide;
constexpr std::size_t c_uPixels = static_cast<std::size_t>(c_iSide) * static_cast<std::size_t>(c_iSide);

struct CColours
{
    ColourRef cr{};
    ColourRef crBackground{};
};

constexpr CColours c_WhiteOnBlack{0xFFFFFF, 0};
constexpr CColours c_BlackOnWhite{0, 0xFFFFFF};
constexpr CColours c_Mixed{0x123456, 0xDCBA98};

// From the first pixel to the last one that is not background, in each row of the rectangle. Whether these are the
// system's pixels, the comparison shows.
CAtomShape ReadShape(std::span<const Pixel> picture, const CRect& rc, Pixel background)
{
    CAtomShape shape;
    shape.width = static_cast<std::uint8_t>(rc.GetWidth());
    shape.height = static_cast<std::uint8_t>(rc.GetHeight());
    for (int y = 0; y < rc.GetHeight(); ++y)
    {
        const auto row = picture.subspan(static_cast<std::size_t>((rc.top + y) * c_iSide + rc.left), shape.width);
        const auto isDrawn = [background](Pixel pixel) { return pixel != background; };
        const auto first = std::find_if(row.begin(), row.end(), isDrawn);
        const auto last = std::find_if(row.rbegin(), row.rend(), isDrawn).base();
        if (first < last)
        {
            shape.runs[static_cast<std::size_t>(y)] = {static_cast<std::uint8_t>(first - row.begin()),
                                                       static_cast<std::uint8_t>(last - row.begin())};
        }
    }
    return shape;
}

// Whether the system draws exactly the shape's pixels at pt.
bool DrawsShape(IEllipseSource& source, const CAtomShape& shape, const CPoint<int>& pt, const CColours& colours)
{
    std::array<Pixel, c_uPixels> expected;
    expected.fill(MakePixel(colours.crBackground));
    FillShape({expected.data(), c_iSide, c_iSide}, pt.x, pt.y, shape, MakePixel(colours.cr));
    const CRect rc{pt.x, pt.y, pt.x + shape.width, pt.y + shape.height};
    const std::span<const Pixel> picture = source.Draw(rc, colours.cr, colours.crBackground);
    return std::equal(picture.begin(), picture.end(), expected.begin(), expected.end());
}

std::optional<CAtomShape> LearnShape(IEllipseSource& source, int iWidth, int iHeight)
{
    constexpr int c_iMargin = 3;
    constexpr CPoint<int> c_ptFirst{c_iMargin, c_iMargin};
    const CRect rcFirst{c_ptFirst.x, c_ptFirst.y, c_ptFirst.x + iWidth, c_ptFirst.y + iHeight};
    const std::span<const Pixel> picture = source.Draw(rcFirst, c_WhiteOnBlack.cr, c_WhiteOnBlack.crBackground);
    if (picture.size() != c_uPixels)
    {
        return std::nullopt;
    }
    const CAtomShape shape = ReadShape(picture, rcFirst, MakePixel(c_WhiteOnBlack.crBackground));
    const CPoint<int> ptAcrossLeftTop{-iWidth / 2, -iHeight / 2};
    const CPoint<int> ptAcrossRightBottom{c_iSide - iWidth / 2, c_iSide - iHeight / 2};
    const bool bSame = DrawsShape(source, shape, c_ptFirst, c_WhiteOnBlack) &&
                       DrawsShape(source, shape, {c_ptFirst.x + 1, c_ptFirst.y}, c_BlackOnWhite) &&
                       DrawsShape(source, shape, {c_ptFirst.x, c_ptFirst.y + 1}, c_Mixed) &&
                       DrawsShape(source, shape, ptAcrossLeftTop, c_BlackOnWhite) &&
                       DrawsShape(source, shape, ptAcrossRightBottom, c_Mixed);
    return bSame ? std::optional(shape) : std::nullopt;
}

} // namespace

std::optional<CAtomShapes> CAtomShapes::Learn(IEllipseSource& source)
{
    std::optional<CAtomShapes> shapes = CAtomShapes();
    for (int iRadius = 1; iRadius <= c_iMaxRadius; ++iRadius)
    {
        for (const int iWidth : {2 * iRadius, 2 * iRadius + 1})
        {
            for (const int iHeight : {2 * iRadius, 2 * iRadius + 1})
            {
                const std::optional<CAtomShape> shape = LearnShape(source, iWidth, iHeight);
                if (!shape)
                {
                    return std::nullopt;
                }
                shapes->m_shapes[GetIndex(iWidth, iHeight)] = *shape;
            }
        }
    }
    return shapes;
}
