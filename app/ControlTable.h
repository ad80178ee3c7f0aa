#pragma once

#include "classes/windows/panel/CDataCtrlGroup.h"

#include <span>

// One row of the settings panel. The key is the control's label in the string table, and its identity everywhere.
struct CControlRow
{
    EnumDataCtrlType type;
    const wchar_t* key;
    const wchar_t* description; // key of the text for status bar and tooltip; empty for headings and dividers
    unsigned short size;        // entries: most characters
    unsigned char flag;
    EnumShowState showState;
};

// The settings panel, in display order; the place of a row is its control's index.
std::span<const CControlRow> GetControlTable();
