#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

// One text of the user interface: its key and its English wording. The caller that shows a text with "%i" replaces that
// by a number; only such texts write a percent sign as "%%".
struct CStringRow
{
    std::wstring_view sKey;
    std::wstring_view sText;
};

// All texts, in the order of the table of each language.
inline constexpr auto c_StringRows = std::to_array<CStringRow>({
    {L"Ok", L"Ok"},
    {L"Cancel", L"Cancel"},
    {L"Start", L"Start"},
    {L"Stop", L"Stop"},
    {L"Start_stop_btn_desc", L"This button starts/stops the simulation"},
    {L"World_view", L"World view"},
    {L"Width", L"Width"},
    {L"Width_desc", L"The width of the world in pixels"},
    {L"Height", L"Height"},
    {L"Height_desc", L"The height of the world in pixels"},
    {L"Background_colour", L"Background colour"},
    {L"Background_colour_desc", L"The world's background colour"},
    {L"Tot_atoms", L"Tot atoms"},
    {L"Tot_atoms_desc", L"The amount of atoms in the simulation"},
    {L"Atoms", L"Atoms"},
    {L"Min_radius", L"Min radius"},
    {L"Min_radius_desc", L"The minimum radius of the atoms"},
    {L"Max_radius", L"Max radius"},
    {L"Max_radius_desc", L"The maximum radius of the atoms"},
    {L"Colour_mode", L"Colour mode"},
    {L"Colour_mode_desc", L"The atoms are coloured based on the chosen mode"},
    {L"Speed", L"Speed"},
    {L"Fixed", L"Fixed"},
    {L"Colour_1", L"Colour 1"},
    {L"Colour_1_desc", L"The first colour"},
    {L"Colour_2", L"Colour 2"},
    {L"Colour_2_desc", L"The second colour"},
    {L"Colour_3", L"Colour 3"},
    {L"Colour_3_desc", L"The third colour"},
    {L"Colour_1_factor", L"Colour 1 factor"},
    {L"Colour_1_factor_desc",
     L"The amount of atoms with colour 1. This can be an absolute number (e.g., 123) or a percentage "
     L"(e.g., 12.34%)"},
    {L"Colour_2_factor", L"Colour 2 factor"},
    {L"Colour_2_factor_desc",
     L"The amount of atoms with colour 2. This can be an absolute number (e.g., 123) or a percentage "
     L"(e.g., 12.34%)"},
    {L"Colour_3_factor", L"Colour 3 factor"},
    {L"Colour_3_factor_desc",
     L"The amount of atoms with colour 3. This can be an absolute number (e.g., 123) or a percentage "
     L"(e.g., 12.34%)"},
    {L"Need_exactly_two_out_of_three_factors",
     L"You need to set exactly two of the three colour factors and leave one factor unset/empty.\n"
     L"The remaining atoms (if any) will get the empty/unset factor's colour.\n\n"
     L"Example:\n"
     L"Factor 1 = 10, factor 2 = empty, factor 3 = 50%"},
    {L"Error", L"Error"},
    {L"Colour_factor_n_is_invalid", L"Colour factor %i has an invalid value.\n\n"
                                    L"You can use an absolute value, e.g., 123 or a percentage, e.g., 12.34%%."},
    {L"Colour_factor_n_is_invalid_for_speed_mode",
     L"Colour factor %i has an invalid value.\n\n"
     L"In speed mode you can only use an absolute value, which denotes the speed of an atom.\n"
     L"The average speed of all the atoms is about 1.0.\n\n"
     L"Factor 1 is the maximum speed an atom may have to belong to the slow atoms (e.g., 0.75).\n"
     L"Factor 2 is not needed, because the atoms which are neither slow nor fast are automatically colour "
     L"2.\n"
     L"Factor 3 is the minimum speed an atom must have to belong to the fast atoms (e.g., 1.25)."},
});

constexpr std::size_t c_uStringCount = c_StringRows.size();

// The rows of the table.
constexpr std::span<const CStringRow, c_uStringCount> StringTable_GetRows()
{
    return c_StringRows;
}

// A key is an ASCII identifier: letters, digits and "_".
constexpr bool StringTable_IsKey(std::wstring_view sKey)
{
    for (const wchar_t c : sKey)
    {
        const bool bLetter = (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z');
        const bool bDigit = c >= L'0' && c <= L'9';
        if (!bLetter && !bDigit && c != L'_')
        {
            return false;
        }
    }
    return !sKey.empty();
}

// True when every row has a valid key and a text, and no key occurs twice.
constexpr bool StringTable_IsSound(std::span<const CStringRow> rows)
{
    for (std::size_t uRow = 0; uRow < rows.size(); ++uRow)
    {
        if (!StringTable_IsKey(rows[uRow].sKey) || rows[uRow].sText.empty())
        {
            return false;
        }
        for (std::size_t uEarlier = 0; uEarlier < uRow; ++uEarlier)
        {
            if (rows[uEarlier].sKey == rows[uRow].sKey)
            {
                return false;
            }
        }
    }
    return true;
}

static_assert(StringTable_IsSound(c_StringRows), "a text has no key, a key has no text, or a key occurs twice");
