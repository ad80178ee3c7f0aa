#pragma once

#include <array>
#include <string_view>

struct CExpectedText
{
    std::wstring_view sKey;
    std::wstring_view sText;
};

// The texts that a user reads, written out a second time, so that a change in the program's table makes a test fail.
inline constexpr auto c_ExpectedTexts = std::to_array<CExpectedText>({
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
    {L"Colour_1_factor_desc", L"The amount of atoms with colour 1. This can be an absolute number (e.g., 123) or a "
                              L"percentage (e.g., 12.34%)"},
    {L"Colour_2_factor", L"Colour 2 factor"},
    {L"Colour_2_factor_desc", L"The amount of atoms with colour 2. This can be an absolute number (e.g., 123) or a "
                              L"percentage (e.g., 12.34%)"},
    {L"Colour_3_factor", L"Colour 3 factor"},
    {L"Colour_3_factor_desc", L"The amount of atoms with colour 3. This can be an absolute number (e.g., 123) or a "
                              L"percentage (e.g., 12.34%)"},
    {L"Need_exactly_two_out_of_three_factors",
     L"You need to set exactly two of the three colour factors and leave one factor "
     L"unset/empty.\nThe remaining atoms (if any) will get the empty/unset factor's "
     L"colour.\n\nExample:\nFactor 1 = 10, factor 2 = empty, factor 3 = 50%"},
    {L"Error", L"Error"},
    {L"Colour_factor_n_is_invalid",
     L"Colour factor %i has an invalid value.\n\nYou can use an absolute value, e.g., 123 or a "
     L"percentage, e.g., 12.34%%."},
    {L"Colour_factor_n_is_invalid_for_speed_mode",
     L"Colour factor %i has an invalid value.\n\nIn speed mode you can only use an absolute "
     L"value, which denotes the speed of an atom.\nThe average speed of all the atoms is about "
     L"1.0.\n\nFactor 1 is the maximum speed an atom may have to belong to the slow atoms "
     L"(e.g., 0.75).\nFactor 2 is not needed, because the atoms which are neither slow nor "
     L"fast are automatically colour 2.\nFactor 3 is the minimum speed an atom must have to "
     L"belong to the fast atoms (e.g., 1.25)."},
});
