#pragma once

#include "classes/core/CColour.h"

#include <cstddef>
#include <cstdint>

// A pixel in memory: 0x00RRGGBB.
using Pixel = std::uint32_t;

constexpr Pixel MakePixel(ColourRef cr)
{
    return MakeColour(GetBlue(cr), GetGreen(cr), GetRed(cr));
}

// Pixels of someone else, rows from the top without gaps.
struct CPixelArea
{
    Pixel* pPixels{};
    int iWidth{};
    int iHeight{};

    // y: 0..iHeight - 1.
    Pixel* GetRow(int y) const { return pPixels + static_cast<std::size_t>(y) * static_cast<std::size_t>(iWidth); }
};
