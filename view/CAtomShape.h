#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

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
