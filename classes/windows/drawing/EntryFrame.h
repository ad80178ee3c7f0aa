#pragma once

#include <windows.h>

#include "classes/core/CColour.h"

// How an entry field or list is framed and filled at the moment.
struct CEntryLook
{
    bool bFocus = false;
    bool bEnabled = true;
    bool bHot = false; // under the pointer
};

ColourRef GetEntryColour(const CEntryLook& look);
ColourRef GetEntryTextColour(const CEntryLook& look);

// Draws the rounded field with its border, or with the focus ring, over what the context shows there.
void DrawEntryFrame(HDC hDc, const RECT& rc, const CEntryLook& look);
