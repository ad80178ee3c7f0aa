#pragma once

#include <windows.h>

#include "classes/windows/system/Handles.h"

// The font that the system shows messages in (9 point Segoe UI unless the user chose otherwise), in its size at 96 dots
// per inch, and no higher than the program's rows can hold.
CFontHandle MakeGuiFont();

// The same font in bold.
CFontHandle MakeBoldFont(HFONT hFont);

// The icon of that resource number at the system's large or small size; null if there is none. Icons are kept until the
// process ends, because window classes that outlive their windows hold on to them.
HICON LoadSharedIcon(HINSTANCE hInstance, unsigned short uIconId, bool bLarge);

// The cursor of that resource number; the system's own one if the number is 0 or not found.
HCURSOR LoadCursorOrSystem(HINSTANCE hInstance, int iCursor, const wchar_t* sSystemCursor);

// The height of the font's letters with their accents and descenders, in pixels.
int GetFontHeight(HFONT hFont);
