#pragma once

#include <cstdint>

// How the three atom colours are dealt out: in fixed numbers of atoms, or by speed class.
enum class EnumAtomColourMode : std::uint8_t
{
    Fixed = 0,
    Speed = 1
};

// The mode for the selected entry of the colour mode list: 1 is Speed, anything else (no selection too) is Fixed.
constexpr EnumAtomColourMode ColourModeFromIndex(int index)
{
    return index == 1 ? EnumAtomColourMode::Speed : EnumAtomColourMode::Fixed;
}
