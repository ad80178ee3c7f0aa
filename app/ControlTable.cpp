#include "app/ControlTable.h"

#include "settings/SettingRows.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace
{

using Type = EnumDataCtrlType;
constexpr EnumShowState inUse = EnumShowState::InUse;

constexpr const wchar_t* Key(EnumSetting eSetting)
{
    return GetSettingRow(eSetting).sPanelKey;
}

constexpr auto c_Rows = std::to_array<CControlRow>({
    {Type::Heading, L"World_view", L"", 0, 1, inUse},
    {Type::NumberEntry, Key(EnumSetting::WorldWidth), L"Width_desc", 4, 0, inUse},
    {Type::NumberEntry, Key(EnumSetting::WorldHeight), L"Height_desc", 4, 0, inUse},
    {Type::ColourButton, Key(EnumSetting::BackgroundColour), L"Background_colour_desc", 5, 1, inUse},
    {Type::Divider, L"<divider_1>", L"", 0, 1, inUse},
    {Type::Heading, L"Atoms", L"", 0, 1, inUse},
    {Type::NumberEntry, Key(EnumSetting::TotalAtoms), L"Tot_atoms_desc", 7, 0, inUse},
    {Type::NumberEntry, Key(EnumSetting::MinRadius), L"Min_radius_desc", 2, 0, inUse},
    {Type::NumberEntry, Key(EnumSetting::MaxRadius), L"Max_radius_desc", 2, 0, inUse},
    {Type::Divider, L"<divider_2>", L"", 0, 1, inUse},
    {Type::DropDownList, Key(EnumSetting::ColourMode), L"Colour_mode_desc", 10, 0, inUse},
    {Type::ColourButton, Key(EnumSetting::Colour1), L"Colour_1_desc", 5, 0, inUse},
    {Type::FactorEntry, Key(EnumSetting::Factor1), L"Colour_1_factor_desc", 10, 0, inUse},
    {Type::ColourButton, Key(EnumSetting::Colour2), L"Colour_2_desc", 5, 0, inUse},
    {Type::FactorEntry, Key(EnumSetting::Factor2), L"Colour_2_factor_desc", 10, 0, inUse},
    {Type::ColourButton, Key(EnumSetting::Colour3), L"Colour_3_desc", 5, 0, inUse},
    {Type::FactorEntry, Key(EnumSetting::Factor3), L"Colour_3_factor_desc", 10, 0, inUse},
});

static_assert(std::all_of(c_SettingRows.begin(), c_SettingRows.end(),
                          [](const CSettingRow& setting) {
                              return std::count_if(c_Rows.begin(), c_Rows.end(), [&](const CControlRow& row) {
                                         return std::wstring_view(row.key) == setting.sPanelKey;
                                     }) == 1;
                          }),
              "each setting has one row of the panel");

} // namespace

std::span<const CControlRow> GetControlTable()
{
    return c_Rows;
}
