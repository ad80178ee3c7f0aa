#pragma once

#include <windows.h>

#include "classes/core/CColour.h"

// The present state of an entry field or list, which decides its frame and fill.
struct CEntryLook
{
    bool bFocus = false;
    bool bEnabled = true;
    bool bHot = false; // under the pointer
};

ColourRef GetEntryColour(const CEntryLook& look);
ColourRef GetEntryTextColour(const CEntryLook& look);

// Draws the rounded field with its border, or with the focus ring, over the present content of the context.
void DrawEntryFrame(HDC hDc, const RECT& rc, const CEntryLook& look);
