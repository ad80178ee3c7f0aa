#include "classes/windows/drawing/EntryFrame.h"

#include "classes/windows/drawing/RoundedRect.h"
#include "classes/windows/drawing/WindowColours.h"

namespace
{
constexpr int c_iRadius = 4;
constexpr int c_iBorder = 1;
constexpr int c_iFocusRing = 2;
} // namespace

ColourRef GetEntryColour(const CEntryLook& look)
{
    return look.bEnabled ? c_crEntry : c_crEntryGreyed;
}

ColourRef GetEntryTextColour(const CEntryLook& look)
{
    return look.bEnabled ? c_crEntryText : c_crEntryTextGreyed;
}

void DrawEntryFrame(HDC hDc, const RECT& rc, const CEntryLook& look)
{
    ColourRef crBorder = look.bEnabled ? c_crEntryBorder : c_crEntryBorderGreyed;
    if (look.bHot && look.bEnabled)
    {
        crBorder = c_crWhiteLine;
    }
    if (look.bFocus)
    {
        crBorder = c_crFocus;
    }
    const int iBorder = look.bFocus ? c_iFocusRing : c_iBorder;
    FillRoundedFrame(hDc, rc, c_iRadius, iBorder, crBorder, GetEntryColour(look));
}
