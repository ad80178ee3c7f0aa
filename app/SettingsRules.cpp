#include "app/SettingsRules.h"

namespace
{
constexpr ColourRef c_crRed = MakeColour(255, 0, 0);
constexpr ColourRef c_crGrey = MakeColour(128, 128, 128);
constexpr ColourRef c_crGreen = MakeColour(0, 255, 0);

constexpr std::array<CColourDefault, 3> c_SpeedDefaults{{{c_crRed, L"0.75"}, {c_crGrey, L""}, {c_crGreen, L"1.25"}}};

// Colours 1 and 2 are the same red here: files that hold nothing but the mode have always looked so.
constexpr std::array<CColourDefault, 3> c_FixedDefaults{{{c_crRed, L"25%"}, {c_crRed, L"50%"}, {c_crGreen, L"25%"}}};

constexpr unsigned c_uModeBits = 0xFF;
} // namespace

const std::array<CColourDefault, 3>& GetColourDefaults(EnumAtomColourMode eMode)
{
    return eMode == EnumAtomColourMode::Speed ? c_SpeedDefaults : c_FixedDefaults;
}

EnumAtomColourMode GetColourModeOfSetting(unsigned uValue)
{
    return (uValue & c_uModeBits) != 0 ? EnumAtomColourMode::Speed : EnumAtomColourMode::Fixed;
}
