#pragma once

#include <windows.h>

#include "classes/core/CWString.h"

// The alignment of a text in its rectangle. The values are fixed: callers pass them as numbers.
enum class EnumTextHorizontal : int
{
    Left = 1,
    Centre = 2,
    Right = 3
};

enum class EnumTextVertical : int
{
    Top = 4,
    Middle = 5,
    Bottom = 6
};

// A text that its owner draws on its own background: no window, no focus.
class CTextCtrl
{
public:
    void SetText(const CWString& sText) { m_sText = sText; }
    const CWString& GetText() const { return m_sText; }

    // The font is not owned; null means the system's default GUI font. bRedraw has no effect, because the text has no
    // window to redraw: it is for callers that treat the text like a control.
    void SetFont(HFONT hFont, bool bRedraw);
    void SetTextColour(COLORREF cr) { m_crText = cr; }
    // Transparent (the default): the background shows through. Otherwise the rectangle is filled with the colour.
    void SetBackground(bool bTransparent, COLORREF cr);
    // A shadow one pixel to the right and below the letters, for texts on a texture.
    void SetShadow(bool bShadow, COLORREF cr);

    // Horizontal 1-3 and vertical 4-6 as in the enums above (anything else: left, top); the largest number of lines
    // (1: a single line, 0: as many as fit); bMayOverhang: the text is not cut at the rectangle's edges, so that a
    // right-aligned one may begin left of it.
    void SetTextFormat(int iHorizontal, int iVertical, int iLines, bool bMayOverhang);

    void SetDrawingRect(const RECT* pRect);
    void GetDrawingRect(RECT* pRect) const;
    // The rectangle of the letters themselves.
    RECT GetTextRect(HDC hDc) const;

    // False if there is nothing to draw: no context, no text, or an empty rectangle.
    bool Draw(HDC hDc) const;

private:
    UINT GetDrawFlags() const;

    CWString m_sText;
    HFONT m_hFont = nullptr;
    COLORREF m_crText = 0;
    COLORREF m_crBackground = 0;
    COLORREF m_crShadow = 0;
    bool m_bTransparent = true;
    bool m_bShadow = false;
    bool m_bMayOverhang = false;
    int m_iLines = 1;
    EnumTextHorizontal m_eHorizontal = EnumTextHorizontal::Left;
    EnumTextVertical m_eVertical = EnumTextVertical::Top;
    RECT m_rcDrawing{};
};
