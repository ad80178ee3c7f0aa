#pragma once

#include "classes/core/CColour.h"
#include "classes/core/CSize.h"
#include "settings/CFactor.h"
#include "simulation/EnumAtomColourMode.h"

#include <array>
#include <cstddef>
#include <cstdint>

// The number of colours. Each has a factor that says which atoms get it.
constexpr std::size_t c_uColourClassCount = 3;

using CClassColours = std::array<ColourRef, c_uColourClassCount>;
using CFactors = std::array<CFactor, c_uColourClassCount>;

// The value of every setting. Nothing here is checked: see the ranges in SettingRows.h and CheckFactors.
struct CSettings
{
    CSize<int> world;         // world units, which are pixels
    ColourRef background{};   // of the world
    std::int32_t atoms{};     // number of atoms
    std::uint8_t minRadius{}; // world units
    std::uint8_t maxRadius{}; // world units
    EnumAtomColourMode eMode{EnumAtomColourMode::Speed};
    CClassColours colours{};
    CFactors factors;
};
