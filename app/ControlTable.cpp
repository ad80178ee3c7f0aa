#include "app/ControlTable.h"

const std::array<CControlRow, c_iControlCount>& GetControlTable()
{
    using Type = EnumDataCtrlType;
    constexpr EnumShowState inUse = EnumShowState::InUse;

    static constexpr std::array<CControlRow, c_iControlCount> c_Rows{{
        {Type::Heading, L"World_view", L"", 0, 1, inUse},
        {Type::NumberEntry, L"Width", L"Width_desc", 4, 0, inUse},
        {Type::NumberEntry, L"Height", L"Height_desc", 4, 0, inUse},
        {Type::ColourButton, L"Background_colour", L"Background_colour_desc", 5, 1, inUse},
        {Type::Divider, L"<divider_1>", L"", 0, 1, inUse},
        {Type::Heading, L"Atoms", L"", 0, 1, inUse},
        {Type::NumberEntry, L"Tot_atoms", L"Tot_atoms_desc", 7, 0, inUse},
        {Type::NumberEntry, L"Min_radius", L"Min_radius_desc", 2, 0, inUse},
        {Type::NumberEntry, L"Max_radius", L"Max_radius_desc", 2, 0, inUse},
        {Type::Divider, L"<divider_2>", L"", 0, 1, inUse},
        {Type::DropDownList, L"Colour_mode", L"Colour_mode_desc", 10, 0, inUse},
        {Type::ColourButton, L"Colour_1", L"Colour_1_desc", 5, 0, inUse},
        {Type::FactorEntry, L"Colour_1_factor", L"Colour_1_factor_desc", 10, 0, inUse},
        {Type::ColourButton, L"Colour_2", L"Colour_2_desc", 5, 0, inUse},
        {Type::FactorEntry, L"Colour_2_factor", L"Colour_2_factor_desc", 10, 0, inUse},
        {Type::ColourButton, L"Colour_3", L"Colour_3_desc", 5, 0, inUse},
        {Type::FactorEntry, L"Colour_3_factor", L"Colour_3_factor_desc", 10, 0, inUse},
    }};
    return c_Rows;
}
