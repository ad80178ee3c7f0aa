#pragma once

#include "classes/core/CColour.h"
#include "simulation/EnumAtomColourMode.h"

#include <array>

// The names and defaults of the settings file. The section and its keys are what users and their scripts know: they
// never change.
namespace SettingsFile
{
constexpr const wchar_t* c_sFileName = L"Kinetarium.ini";
constexpr const wchar_t* c_sSection = L"Settings";

constexpr int c_iDefaultWorldLength = 512; // pixels, width and height
constexpr ColourRef c_crDefaultBackground = 0;
constexpr int c_iDefaultAtoms = 256;
constexpr int c_iDefaultMinRadius = 3; // pixels
constexpr int c_iDefaultMaxRadius = 5; // pixels

// A factor text is read into this many characters, the closing zero included.
constexpr unsigned c_uFactorBuffer = 16;

constexpr std::array<const wchar_t*, 4> c_sWindowKeys{L"WndLeft", L"WndTop", L"WndRight", L"WndBottom"};
} // namespace SettingsFile

// What one atom colour and its factor are when the file does not say.
struct CColourDefault
{
    ColourRef colour = 0;
    const wchar_t* factor = L"";
};

// The defaults of colours 1, 2 and 3. Each mode has its own: fixed mode shares the atoms out in percent.
const std::array<CColourDefault, 3>& GetColourDefaults(EnumAtomColourMode eMode);

// The mode that the number in the file stands for. Only its low 8 bits are looked at.
EnumAtomColourMode GetColourModeOfSetting(unsigned uValue);
