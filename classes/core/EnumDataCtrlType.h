#pragma once

#include <cstdint>

// The kind of a panel row. The values are fixed: tables of controls name them by number.
enum class EnumDataCtrlType : std::uint32_t
{
    ColourButton = 1,
    DropDownList = 6,
    Divider = 10,
    NumberEntry = 12, // digits only
    FactorEntry = 15, // any one line of text
    Heading = 16
};

enum class EnumShowState : std::uint8_t
{
    InUse = 1,
    Greyed = 2 // shown, but disabled and passed over by Tab
};
