// Draws the button: a part of CWndButton with a file of its own.
#include "classes/core/ColourMath.h"
#include "classes/windows/button/CWndButton.h"
#include "classes/windows/drawing/ClientDrawing.h"
#include "classes/windows/drawing/RoundedRect.h"
#include "classes/windows/drawing/WindowColours.h"
#include "classes/windows/system/Handles.h"
#include "classes/windows/system/RectHelpers.h"

namespace
{
constexpr int c_iRadius = 5;
constexpr int c_iBorder = 1;
constexpr int c_iFocusRing = 2;
constexpr int c_iTextInset = 4;
// Shares of white or black in the face and the border, in percent.
constexpr int c_iHoverLight = 40;
constexpr int c_iPressedDark = 16;
constexpr int c_iBorderDark = 55;
constexpr int c_iSwatchBorderLight = 75;
// A disabled button fades into the backdrop, and its text into its face.
constexpr int c_iDisabledFace = 55;
constexpr int c_iDisabledText = 45;

struct CButtonColours
{
    COLORREF crFace;
    COLORREF crBorder;
    COLORREF crText;
};

COLORREF GetBorderColour(COLORREF crFace, bool bSwatch)
{
    // A swatch of any colour, even black, keeps an outline on the dark backdrop.
    return bSwatch ? BlendColours(c_crEntryBorder, c_crWhiteLine, c_iSwatchBorderLight)
                   : BlendColours(crFace, c_crBlackLine, c_iBorderDark);
}

CButtonColours GetDisabledColours(COLORREF crFace, COLORREF crText, bool bSwatch)
{
    const COLORREF crDim = BlendColours(crFace, c_crEntryGreyed, c_iDisabledFace);
    const COLORREF crBorder = bSwatch ? c_crEntryBorderGreyed : GetBorderColour(crDim, false);
    return {crDim, crBorder, BlendColours(crText, crDim, c_iDisabledText)};
}
} // namespace

void CWndButton::SetPressed(bool bPressed)
{
    if (m_bPressed == bPressed)
    {
        return;
    }
    m_bPressed = bPressed;
    Invalidate();
}

void CWndButton::Invalidate() const
{
    if (m_hWnd != nullptr)
    {
        InvalidateRect(m_hWnd, nullptr, FALSE);
    }
}

std::optional<LRESULT> CWndButton::On_Paint(WPARAM, LPARAM)
{
    PaintClient(m_hWnd, [this](HDC hDc, const RECT& rcClient) { Draw(hDc, rcClient); });
    return 0;
}

// Painting covers every pixel: erasing first would only flicker.
std::optional<LRESULT> CWndButton::On_EraseBackground(WPARAM, LPARAM)
{
    return 1;
}

std::optional<LRESULT> CWndButton::On_PrintClient(WPARAM wParam, LPARAM)
{
    PrintClient(m_hWnd, wParam, [this](HDC hDc, const RECT& rcClient) { Draw(hDc, rcClient); });
    return 0;
}

void CWndButton::DrawBehind(HDC hDc)
{
    const RECT rcBackdrop = CWndCommon::GetBackdropRect(m_hWnd, GetAncestor(m_hWnd, GA_ROOT));
    m_picBackdrop.SetDrawingRect(&rcBackdrop);
    m_picBackdrop.DrawByMode(hDc, m_pParent->GetDrawMode());
}

void CWndButton::Draw(HDC hDc, const RECT& rcClient)
{
    DrawBehind(hDc);
    CButtonColours colours{m_bPressed ? m_crPressed : m_crNormal, 0, m_crText};
    if (m_bShade && m_bPressed)
    {
        colours.crFace = BlendColours(colours.crFace, c_crBlackLine, c_iPressedDark);
    }
    else if (m_bShade && m_bHover && !m_bSwatch) // a swatch must show its own colour
    {
        colours.crFace = BlendColours(colours.crFace, c_crWhiteLine, c_iHoverLight);
    }
    colours.crBorder = GetBorderColour(colours.crFace, m_bSwatch);
    if (!IsWindowEnabled(m_hWnd))
    {
        colours = GetDisabledColours(colours.crFace, colours.crText, m_bSwatch);
    }

    if (GetFocus() == m_hWnd)
    {
        FillRoundedRect(hDc, rcClient, c_iRadius, c_crFocus);
        const RECT rcInner{rcClient.left + c_iFocusRing, rcClient.top + c_iFocusRing, rcClient.right - c_iFocusRing,
                           rcClient.bottom - c_iFocusRing};
        FillRoundedFrame(hDc, rcInner, c_iRadius - c_iFocusRing, c_iBorder, c_crFocusInner, colours.crFace);
    }
    else
    {
        const bool bThick = m_bSwatch && m_bHover && IsWindowEnabled(m_hWnd);
        FillRoundedFrame(hDc, rcClient, c_iRadius, bThick ? 2 * c_iBorder : c_iBorder, colours.crBorder,
                         colours.crFace);
    }
    DrawLabel(hDc, rcClient, colours.crText);
}

void CWndButton::DrawLabel(HDC hDc, const RECT& rcClient, COLORREF crText) const
{
    const CWString sText = GetText();
    if (sText.IsEmpty())
    {
        return;
    }
    RECT rcText{rcClient.left + c_iTextInset, rcClient.top, rcClient.right - c_iTextInset, rcClient.bottom};
    if (m_bPressed)
    {
        MoveRect(&rcText, 1, 1);
    }
    const CSelectObject font(hDc, m_hFont != nullptr ? m_hFont : GetStockObject(DEFAULT_GUI_FONT));
    const int iOldMode = SetBkMode(hDc, TRANSPARENT);
    const COLORREF crOld = SetTextColor(hDc, crText);
    const bool bRightToLeft = (GetWindowLongW(m_hWnd, GWL_EXSTYLE) & WS_EX_RTLREADING) != 0;
    DrawTextW(hDc, sText.c_str(), sText.GetLength(), &rcText,
              DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS |
                  (bRightToLeft ? DT_RTLREADING : 0u));
    SetTextColor(hDc, crOld);
    SetBkMode(hDc, iOldMode);
}
