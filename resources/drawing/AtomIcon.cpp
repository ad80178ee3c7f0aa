#include "resources/drawing/AtomIcon.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <span>

namespace
{
// Lengths are shares of the icon's side.
struct CDisc
{
    double x, y, radius;
    double red, green, blue; // levels at the middle of the disc
};

// Large sizes show a few more small atoms; in small sizes they would be specks.
constexpr std::array<CDisc, 6> c_aDiscs = {{
    {0.34, 0.37, 0.200, 235.0, 40.0, 40.0},
    {0.70, 0.30, 0.135, 150.0, 150.0, 150.0},
    {0.63, 0.68, 0.215, 40.0, 215.0, 60.0},
    {0.25, 0.76, 0.075, 150.0, 150.0, 150.0},
    {0.49, 0.16, 0.050, 40.0, 215.0, 60.0},
    {0.87, 0.47, 0.045, 235.0, 40.0, 40.0},
}};
constexpr int c_iDiscsWhenSmall = 3;
constexpr int c_iSmallestSideForAll = 32; // pixels

constexpr double c_dCorner = 0.16;         // radius of the tile's corners
constexpr double c_dMargin = 0.015;        // free border, so that the corners' edge is smooth
constexpr double c_dTileTop = 30.0;        // level of the tile's blue at its upper edge; it ends black
constexpr double c_dTileTint = 0.7;        // red and green of the tile, as a share of its blue
constexpr double c_dRimShade = 0.55;       // how much darker a disc is at its rim
constexpr double c_dHighlight = 110.0;     // levels that the highlight adds at its middle
constexpr double c_dHighlightSize = 0.55;  // its radius, as a share of the disc's
constexpr double c_dHighlightShift = 0.36; // its distance from the middle, left and up
constexpr int c_iSamplesPerPixel = 8;      // along each side
constexpr double c_dFullLevel = 255.0;

struct CSample
{
    double red = 0.0, green = 0.0, blue = 0.0, alpha = 0.0;
};

double Distance(double dX, double dY)
{
    return std::sqrt(dX * dX + dY * dY);
}

bool IsInsideTile(double dX, double dY)
{
    const double dHalf = 0.5 - c_dMargin;
    const double dOverX = std::max(std::fabs(dX - 0.5) - (dHalf - c_dCorner), 0.0);
    const double dOverY = std::max(std::fabs(dY - 0.5) - (dHalf - c_dCorner), 0.0);
    return Distance(dOverX, dOverY) <= c_dCorner;
}

// The light falls from the upper left: a highlight there, and a rim that darkens with the square of the distance.
CSample Shade(const CDisc& disc, double dX, double dY)
{
    const double dFromMiddle = Distance(dX - disc.x, dY - disc.y) / disc.radius;
    const double dShade = 1.0 - c_dRimShade * dFromMiddle * dFromMiddle;
    const double dShift = c_dHighlightShift * disc.radius;
    const double dFromLight = Distance(dX - disc.x + dShift, dY - disc.y + dShift) / (disc.radius * c_dHighlightSize);
    const double dLight = c_dHighlight * std::max(1.0 - dFromLight, 0.0);
    const auto lit = [&](double dLevel) { return std::min(dLevel * dShade + dLight, c_dFullLevel); };
    return {lit(disc.red), lit(disc.green), lit(disc.blue), 1.0};
}

CSample SampleAt(double dX, double dY, std::span<const CDisc> discs)
{
    if (!IsInsideTile(dX, dY))
    {
        return {};
    }
    for (const CDisc& disc : discs)
    {
        if (Distance(dX - disc.x, dY - disc.y) <= disc.radius)
        {
            return Shade(disc, dX, dY);
        }
    }
    const double dBlue = c_dTileTop * (1.0 - dY);
    return {dBlue * c_dTileTint, dBlue * c_dTileTint, dBlue, 1.0};
}

// The mean of the samples in one pixel; opacity weights the colours.
CPixel PixelAt(int iX, int iY, int iSide, std::span<const CDisc> discs)
{
    CSample sum;
    for (int iSample = 0; iSample < c_iSamplesPerPixel * c_iSamplesPerPixel; ++iSample)
    {
        const double dInX = (iSample % c_iSamplesPerPixel + 0.5) / c_iSamplesPerPixel;
        // NOLINTNEXTLINE(bugprone-integer-division): the number of the sample's row
        const double dInY = (iSample / c_iSamplesPerPixel + 0.5) / c_iSamplesPerPixel;
        const CSample sample = SampleAt((iX + dInX) / iSide, (iY + dInY) / iSide, discs);
        sum.red += sample.red;
        sum.green += sample.green;
        sum.blue += sample.blue;
        sum.alpha += sample.alpha;
    }
    if (sum.alpha == 0.0)
    {
        return {};
    }
    // NOLINTNEXTLINE(bugprone-incorrect-roundings): levels are not below zero, and the same everywhere this way
    const auto toByte = [](double dLevel) { return static_cast<std::uint8_t>(dLevel + 0.5); };
    return {toByte(sum.red / sum.alpha), toByte(sum.green / sum.alpha), toByte(sum.blue / sum.alpha),
            toByte(sum.alpha * c_dFullLevel / (c_iSamplesPerPixel * c_iSamplesPerPixel))};
}
} // namespace

CImage DrawAtomIcon(int iSide)
{
    std::span<const CDisc> discs = c_aDiscs;
    if (iSide < c_iSmallestSideForAll)
    {
        discs = discs.first(c_iDiscsWhenSmall);
    }
    CImage image(iSide, iSide);
    for (int iY = 0; iY < iSide; ++iY)
    {
        for (int iX = 0; iX < iSide; ++iX)
        {
            image.At(iX, iY) = PixelAt(iX, iY, iSide, discs);
        }
    }
    return image;
}
