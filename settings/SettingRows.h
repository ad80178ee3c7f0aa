#pragma once

#include "settings/CSettings.h"
#include "simulation/SimulationConstants.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <variant>

class ISettingsStore;

// One row for each setting holds everything about it. The settings file, the settings panel, the start of a simulation
// and kinetarium-headless go through these rows.

// The settings in the order of the settings file. The value is the number of the row.
enum class EnumSetting : std::uint8_t
{
    WorldWidth,
    WorldHeight,
    BackgroundColour,
    TotalAtoms,
    MinRadius,
    MaxRadius,
    ColourMode,
    Colour1,
    Factor1,
    Colour2,
    Factor2,
    Colour3,
    Factor3
};

enum class EnumSettingType : std::uint8_t
{
    Length,     // of the world: a whole number, without effect in full screen
    Count,      // a whole number
    Radius,     // a whole number; only its low 8 bits count
    ColourMode, // 0 in the low 8 bits: Fixed, anything else: Speed
    Colour,     // a ColourRef
    Factor      // a text
};

// The value of a setting that the file does not hold, for each colour mode.
struct CSettingDefault
{
    // For all settings except the factors.
    constexpr CSettingDefault(std::uint32_t uBoth) : uSpeed(uBoth), uFixed(uBoth) {}
    constexpr CSettingDefault(std::uint32_t uInSpeed, std::uint32_t uInFixed) : uSpeed(uInSpeed), uFixed(uInFixed) {}
    // For factors. Null for Speed: the setting is not used in that mode.
    constexpr CSettingDefault(const wchar_t* sInSpeed, const wchar_t* sInFixed) : sSpeed(sInSpeed), sFixed(sInFixed) {}

    std::uint32_t uSpeed = 0;
    std::uint32_t uFixed = 0;
    const wchar_t* sSpeed = L"";
    const wchar_t* sFixed = L"";
};

struct CSettingRange
{
    std::int64_t low = 0;
    std::int64_t high = 0;
};

// The place of a setting's value in CSettings. Made from a lambda that returns the address: [](auto& s) { ... }.
class CSettingPlace
{
public:
    using CValue = std::variant<std::int32_t*, std::uint32_t*, std::uint8_t*, EnumAtomColourMode*, CFactor*>;
    using CConstValue = std::variant<const std::int32_t*, const std::uint32_t*, const std::uint8_t*,
                                     const EnumAtomColourMode*, const CFactor*>;

    template<class F>
    constexpr CSettingPlace(F)
        : m_pFind([](CSettings& settings) -> CValue { return F{}(settings); }),
          m_pFindConst([](const CSettings& settings) -> CConstValue { return F{}(settings); })
    {
    }

    CValue Find(CSettings& settings) const { return m_pFind(settings); }
    CConstValue Find(const CSettings& settings) const { return m_pFindConst(settings); }

private:
    CValue (*m_pFind)(CSettings&);
    CConstValue (*m_pFindConst)(const CSettings&);
};

struct CSettingRow
{
    EnumSetting eSetting;
    const wchar_t* sFileKey;  // the name in the settings file: it never changes
    const wchar_t* sPanelKey; // the label of its row of the panel in the string table
    EnumSettingType eType;
    CSettingDefault byDefault;
    CSettingRange range; // both ends are allowed; unused for factors
    CSettingPlace place;

    constexpr bool IsUsedIn(EnumAtomColourMode eMode) const
    {
        return eMode != EnumAtomColourMode::Speed || byDefault.sSpeed != nullptr;
    }
};

namespace SettingRanges
{
constexpr CSettingRange c_Length{c_iMinWorldLength, c_iMaxWorldLength};
constexpr CSettingRange c_Atoms{c_iMinTotalAtoms, c_iMaxTotalAtoms};
constexpr CSettingRange c_Radius{c_uMinRadius, c_uMaxRadius};
constexpr CSettingRange c_Mode{0, 1};
constexpr CSettingRange c_Colour{0, 0xFFFFFF};
} // namespace SettingRanges

namespace SettingColours
{
constexpr ColourRef c_crBlack = 0;
constexpr ColourRef c_crRed = MakeColour(255, 0, 0);
constexpr ColourRef c_crGrey = MakeColour(128, 128, 128);
constexpr ColourRef c_crGreen = MakeColour(0, 255, 0);
} // namespace SettingColours

// Colours 1 and 2 are the same red in fixed mode: files that hold only the mode have always looked so.
inline constexpr auto c_SettingRows = [] {
    using enum EnumSetting;
    using Type = EnumSettingType;
    using namespace SettingColours;
    using namespace SettingRanges;
    return std::to_array<CSettingRow>({
        {WorldWidth, L"World_width", L"Width", Type::Length, 512, c_Length, [](auto& s) { return &s.world.cx; }},
        {WorldHeight, L"World_height", L"Height", Type::Length, 512, c_Length, [](auto& s) { return &s.world.cy; }},
        {BackgroundColour, L"World_background_colour", L"Background_colour", Type::Colour, c_crBlack, c_Colour,
         [](auto& s) { return &s.background; }},
        {TotalAtoms, L"Tot_atoms", L"Tot_atoms", Type::Count, 256, c_Atoms, [](auto& s) { return &s.atoms; }},
        {MinRadius, L"Atoms_min_radius", L"Min_radius", Type::Radius, 3, c_Radius,
         [](auto& s) { return &s.minRadius; }},
        {MaxRadius, L"Atoms_max_radius", L"Max_radius", Type::Radius, 5, c_Radius,
         [](auto& s) { return &s.maxRadius; }},
        {ColourMode, L"Atoms_colour_mode", L"Colour_mode", Type::ColourMode, 1, c_Mode,
         [](auto& s) { return &s.eMode; }},
        {Colour1, L"Atom_colour_1", L"Colour_1", Type::Colour, c_crRed, c_Colour,
         [](auto& s) { return &s.colours[0]; }},
        {Factor1,
         L"Atom_colour_1_factor",
         L"Colour_1_factor",
         Type::Factor,
         {L"0.75", L"25%"},
         {},
         [](auto& s) { return &s.factors[0]; }},
        {Colour2,
         L"Atom_colour_2",
         L"Colour_2",
         Type::Colour,
         {c_crGrey, c_crRed},
         c_Colour,
         [](auto& s) { return &s.colours[1]; }},
        {Factor2,
         L"Atom_colour_2_factor",
         L"Colour_2_factor",
         Type::Factor,
         {nullptr, L"50%"},
         {},
         [](auto& s) { return &s.factors[1]; }},
        {Colour3, L"Atom_colour_3", L"Colour_3", Type::Colour, c_crGreen, c_Colour,
         [](auto& s) { return &s.colours[2]; }},
        {Factor3,
         L"Atom_colour_3_factor",
         L"Colour_3_factor",
         Type::Factor,
         {L"1.25", L"25%"},
         {},
         [](auto& s) { return &s.factors[2]; }},
    });
}();

// The factors 1 to 3.
constexpr std::array<EnumSetting, c_uColourClassCount> c_FactorSettings{EnumSetting::Factor1, EnumSetting::Factor2,
                                                                        EnumSetting::Factor3};

constexpr const CSettingRow& GetSettingRow(EnumSetting eSetting)
{
    return c_SettingRows[static_cast<std::size_t>(eSetting)];
}

static_assert(
    [] {
        for (std::size_t u = 0; u < c_SettingRows.size(); ++u)
        {
            if (c_SettingRows[u].eSetting != static_cast<EnumSetting>(u))
            {
                return false;
            }
        }
        return true;
    }(),
    "the rows are in another order than EnumSetting, or one between them is missing");

// The number of a setting; 0 for a factor.
std::int64_t GetNumber(const CSettingRow& row, const CSettings& settings);

// Sets the number of a setting as its type reads it from the file. Does nothing for a factor.
void SetNumber(const CSettingRow& row, CSettings& settings, std::int32_t number);

// The number, limited to the upper end of the row's range first, then to the lower one.
std::int32_t ClampNumber(const CSettingRow& row, std::int32_t number);

// The text of a factor; empty for any other setting.
CWString GetFactorText(const CSettingRow& row, const CSettings& settings);
void SetFactorText(const CSettingRow& row, CSettings& settings, const CWString& sText);

// Reads one setting from the file. If it is missing, it gets the default for settings.eMode: read the mode before the
// rows below it. A setting that is not used in that mode is not read and becomes empty.
void ReadSetting(const ISettingsStore& store, const CSettingRow& row, CSettings& settings);

// Swaps the two radii if minRadius is above maxRadius.
void SortRadii(CSettings& settings);
