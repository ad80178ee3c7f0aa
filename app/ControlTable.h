#pragma once

#include "classes/windows/panel/CDataCtrlGroup.h"

#include <span>

// One row of the settings panel. The key of the control's label in the string table identifies the control everywhere.
struct CControlRow
{
    EnumDataCtrlType type;
    const wchar_t* key;
    const wchar_t* description; // key of the text for status bar and tooltip; empty for headings and dividers
    unsigned short size;        // entries: the largest number of characters
    unsigned char flag;
    EnumShowState showState;
};

// The rows of the settings panel, in display order; the index of a row is the index of its control.
std::span<const CControlRow> GetControlTable();
