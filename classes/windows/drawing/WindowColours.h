#pragma once

#include "classes/core/CColour.h"

// The colours that the controls share. They are made for the dark slate-teal backdrop.

// The ring around the control with the keyboard focus: warm, so that it stands out from the backdrop, from the light
// entries and from most swatches.
constexpr ColourRef c_crFocus = MakeColour(0xFF, 0xC0, 0x4D);
// The thin line between the ring and a face of the same colour.
constexpr ColourRef c_crFocusInner = MakeColour(0x14, 0x22, 0x26);

constexpr ColourRef c_crBlackLine = MakeColour(0, 0, 0);
constexpr ColourRef c_crWhiteLine = MakeColour(0xFF, 0xFF, 0xFF);

constexpr ColourRef c_crEntry = MakeColour(0xF3, 0xF7, 0xF4);
constexpr ColourRef c_crEntryText = MakeColour(0x10, 0x1C, 0x1E);
constexpr ColourRef c_crEntryBorder = MakeColour(0x8F, 0xA6, 0xA2);
constexpr ColourRef c_crEntryGreyed = MakeColour(0x5B, 0x70, 0x74);
constexpr ColourRef c_crEntryTextGreyed = MakeColour(0xB4, 0xC2, 0xC2);
constexpr ColourRef c_crEntryBorderGreyed = MakeColour(0x6E, 0x84, 0x87);

constexpr ColourRef c_crLabelGreyed = MakeColour(0x93, 0xA6, 0xA8);

// A groove is a dark line above a light one; a rule beside a heading is only the light one.
constexpr ColourRef c_crGrooveDark = MakeColour(0x16, 0x24, 0x28);
constexpr ColourRef c_crGrooveLight = MakeColour(0x6F, 0x8A, 0x8E);
