#pragma once

#include <cstdint>

// A colour as Windows passes it around: 0x00BBGGRR, red in the lowest byte.
using ColourRef = std::uint32_t;

constexpr unsigned c_uGreenShiftBits = 8;
constexpr unsigned c_uBlueShiftBits = 16;
constexpr ColourRef c_uChannelMask = 0xFF;

constexpr std::uint8_t GetRed(ColourRef cr)
{
    return static_cast<std::uint8_t>(cr & c_uChannelMask);
}

constexpr std::uint8_t GetGreen(ColourRef cr)
{
    return static_cast<std::uint8_t>((cr >> c_uGreenShiftBits) & c_uChannelMask);
}

constexpr std::uint8_t GetBlue(ColourRef cr)
{
    return static_cast<std::uint8_t>((cr >> c_uBlueShiftBits) & c_uChannelMask);
}

constexpr ColourRef MakeColour(std::uint8_t uRed, std::uint8_t uGreen, std::uint8_t uBlue)
{
    return static_cast<ColourRef>(uRed) | (static_cast<ColourRef>(uGreen) << c_uGreenShiftBits) |
           (static_cast<ColourRef>(uBlue) << c_uBlueShiftBits);
}
