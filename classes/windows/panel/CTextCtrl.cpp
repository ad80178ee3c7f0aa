#include "classes/windows/panel/CTextCtrl.h"

#include "classes/windows/system/Handles.h"
#include "classes/windows/system/RectHelpers.h"

#include <algorithm>

namespace
{
// The distance between a text and the left or right edge it is aligned to, in pixels: letters that touch a window's
// edge are hard to read.
constexpr int c_iEdgeGap = 8;
constexpr int c_iShadowOffset = 1;

HFONT OrDefaultFont(HFONT hFont)
{
    return hFont != nullptr ? hFont : static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
}
} // namespace

void CTextCtrl::SetFont(HFONT hFont, bool)
{
    m_hFont = hFont;
}

void CTextCtrl::SetBackground(bool bTransparent, COLORREF cr)
{
    m_bTransparent = bTransparent;
    m_crBackground = cr;
}

void CTextCtrl::SetShadow(bool bShadow, COLORREF cr)
{
    m_bShadow = bShadow;
    m_crShadow = cr;
}

void CTextCtrl::SetTextFormat(int iHorizontal, int iVertical, int iLines, bool bMayOverhang)
{
    const bool bCentre = iHorizontal == static_cast<int>(EnumTextHorizontal::Centre);
    const bool bRight = iHorizontal == static_cast<int>(EnumTextHorizontal::Right);
    m_eHorizontal = bRight    ? EnumTextHorizontal::Right
                    : bCentre ? EnumTextHorizontal::Centre
                              : EnumTextHorizontal::Left;
    const bool bMiddle = iVertical == static_cast<int>(EnumTextVertical::Middle);
    const bool bBottom = iVertical == static_cast<int>(EnumTextVertical::Bottom);
    m_eVertical = bBottom ? EnumTextVertical::Bottom : bMiddle ? EnumTextVertical::Middle : EnumTextVertical::Top;
    m_iLines = std::max(iLines, 0);
    m_bMayOverhang = bMayOverhang;
}

void CTextCtrl::SetDrawingRect(const RECT* pRect)
{
    m_rcDrawing = pRect != nullptr ? *pRect : RECT{};
}

void CTextCtrl::GetDrawingRect(RECT* pRect) const
{
    if (pRect != nullptr)
    {
        *pRect = m_rcDrawing;
    }
}

UINT CTextCtrl::GetDrawFlags() const
{
    UINT uFlags = DT_NOPREFIX;
    if (m_iLines == 1)
    {
        uFlags |= DT_SINGLELINE;
    }
    else if (!m_bMayOverhang)
    {
        uFlags |= DT_WORDBREAK;
    }
    return uFlags;
}

RECT CTextCtrl::GetTextRect(HDC hDc) const
{
    const CSelectObject font(hDc, OrDefaultFont(m_hFont));
    RECT rcText{0, 0, std::max(GetRectWidth(m_rcDrawing) - 2 * c_iEdgeGap, 1), 0};
    const int iWidthAllowed = GetRectWidth(rcText);
    DrawTextW(hDc, m_sText.c_str(), m_sText.GetLength(), &rcText, GetDrawFlags() | DT_CALCRECT);
    TEXTMETRICW metrics{};
    GetTextMetricsW(hDc, &metrics);
    if (m_iLines > 0)
    {
        rcText.bottom = std::min<LONG>(rcText.bottom, metrics.tmHeight * m_iLines);
    }
    if (!m_bMayOverhang)
    {
        rcText.right = std::min<LONG>(rcText.right, iWidthAllowed);
    }

    const int iWidth = GetRectWidth(rcText);
    const int iHeight = GetRectHeight(rcText);
    int iLeft = m_rcDrawing.left + c_iEdgeGap;
    if (m_eHorizontal == EnumTextHorizontal::Right)
    {
        iLeft = m_rcDrawing.right - c_iEdgeGap - iWidth;
    }
    else if (m_eHorizontal == EnumTextHorizontal::Centre)
    {
        iLeft = (m_rcDrawing.left + m_rcDrawing.right - iWidth) / 2;
    }
    int iTop = m_rcDrawing.top;
    if (m_eVertical == EnumTextVertical::Bottom)
    {
        iTop = m_rcDrawing.bottom - iHeight;
    }
    else if (m_eVertical == EnumTextVertical::Middle)
    {
        iTop = (m_rcDrawing.top + m_rcDrawing.bottom - iHeight) / 2;
    }
    MoveRect(&rcText, iLeft, iTop);
    return rcText;
}

bool CTextCtrl::Draw(HDC hDc) const
{
    if (hDc == nullptr || m_sText.IsEmpty() || IsRectEmpty_Plain(m_rcDrawing))
    {
        return false;
    }
    const int iSaved = SaveDC(hDc);
    if (!m_bTransparent)
    {
        const CBrushHandle brush(CreateSolidBrush(m_crBackground));
        FillRect(hDc, &m_rcDrawing, brush.Get());
    }
    RECT rcText = GetTextRect(hDc);
    if (!m_bMayOverhang)
    {
        IntersectClipRect(hDc, m_rcDrawing.left, m_rcDrawing.top, m_rcDrawing.right, m_rcDrawing.bottom);
    }
    SelectObject(hDc, OrDefaultFont(m_hFont));
    SetBkMode(hDc, TRANSPARENT);
    if (m_bShadow)
    {
        RECT rcShadow = rcText;
        MoveRect(&rcShadow, c_iShadowOffset, c_iShadowOffset);
        SetTextColor(hDc, m_crShadow);
        DrawTextW(hDc, m_sText.c_str(), m_sText.GetLength(), &rcShadow, GetDrawFlags());
    }
    SetTextColor(hDc, m_crText);
    DrawTextW(hDc, m_sText.c_str(), m_sText.GetLength(), &rcText, GetDrawFlags());
    RestoreDC(hDc, iSaved);
    return true;
}
