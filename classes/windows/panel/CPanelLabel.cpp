#include "classes/windows/panel/CPanelLabel.h"

#include "classes/windows/drawing/ClientDrawing.h"
#include "classes/windows/drawing/WindowColours.h"
#include "classes/windows/system/Handles.h"
#include "classes/windows/system/RectHelpers.h"
#include "classes/windows/system/ShowCreateWindow.h"
#include "classes/windows/system/SubclassForward.h"

namespace
{
constexpr int c_iShadowOffset = 1;
constexpr int c_iRuleGap = 8; // between a heading's text and its rule

void DrawLine(HDC hDc, const RECT& rc, COLORREF cr)
{
    SetDCBrushColor(hDc, cr);
    FillRect(hDc, &rc, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}
} // namespace

CPanelLabel::~CPanelLabel()
{
    DestroySubclassedWindow<CPanelLabel>(m_hWnd);
}

bool CPanelLabel::Create(const CWString& sText, const CLabelLook& look)
{
    m_sText = sText;
    m_look = look;
    // With SS_NOTIFY the label gets mouse messages of its own: the pointer over it selects the row to describe.
    m_hWnd = CreateWindowExW(0, WC_STATICW, sText.c_str(), WS_CHILD | WS_VISIBLE | SS_NOTIFY | SS_NOPREFIX, 0, 0, 0, 0,
                             m_host.Host_GetWindow(), nullptr, m_host.Host_GetInstance(), nullptr);
    if (m_hWnd == nullptr)
    {
        return false;
    }
    ShowCreateWindow(GetDebugLog(), this, L"CPanelLabel", L"m_hWnd", m_hWnd, sText.c_str());
    SendMessageW(m_hWnd, WM_SETFONT, reinterpret_cast<WPARAM>(m_host.Host_GetFont(look.bHeading)), FALSE);
    return SubclassWindow_Object(m_hWnd, this);
}

void CPanelLabel::SetGreyed(bool bGreyed)
{
    m_bGreyed = bGreyed;
    if (m_hWnd != nullptr)
    {
        InvalidateRect(m_hWnd, nullptr, FALSE);
    }
}

std::optional<LRESULT> CPanelLabel::HandleMessage(UINT uMessage, WPARAM wParam, LPARAM)
{
    switch (uMessage)
    {
    case WM_ERASEBKGND:
        return 1;
    case WM_PAINT:
        PaintClient(m_hWnd, [this](HDC hDc, const RECT& rcClient) { Draw(hDc, rcClient); });
        return 0;
    case WM_PRINTCLIENT:
        PrintClient(m_hWnd, wParam, [this](HDC hDc, const RECT& rcClient) { Draw(hDc, rcClient); });
        return 0;
    case WM_LBUTTONDOWN:
        if (m_hPartner != nullptr && IsWindowEnabled(m_hPartner))
        {
            SetFocus(m_hPartner);
        }
        return 0;
    case WM_MOUSEWHEEL:
        if (m_host.Host_ScrollByWheel(static_cast<short>(HIWORD(wParam))))
        {
            return 0;
        }
        return std::nullopt;
    default:
        return std::nullopt;
    }
}

void CPanelLabel::Draw(HDC hDc, const RECT& rcClient)
{
    m_host.Host_DrawBehind(hDc, m_hWnd);
    const CSelectObject font(hDc, m_host.Host_GetFont(m_look.bHeading));
    const UINT uFlags = DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS;
    RECT rcText = rcClient;
    const int iOldMode = SetBkMode(hDc, TRANSPARENT);
    if (!m_look.bTransparent)
    {
        DrawLine(hDc, rcClient, m_look.crShadow);
    }
    else
    {
        MoveRect(&rcText, c_iShadowOffset, c_iShadowOffset);
        SetTextColor(hDc, m_look.crShadow);
        DrawTextW(hDc, m_sText.c_str(), m_sText.GetLength(), &rcText, uFlags);
        MoveRect(&rcText, -c_iShadowOffset, -c_iShadowOffset);
    }
    SetTextColor(hDc, m_bGreyed ? c_crLabelGreyed : m_look.crText);
    DrawTextW(hDc, m_sText.c_str(), m_sText.GetLength(), &rcText, uFlags);
    if (m_look.bHeading)
    {
        SIZE size{};
        GetTextExtentPoint32W(hDc, m_sText.c_str(), m_sText.GetLength(), &size);
        DrawRule(hDc, rcClient, rcClient.left + size.cx);
    }
    SetBkMode(hDc, iOldMode);
}

void CPanelLabel::DrawRule(HDC hDc, const RECT& rcClient, int iTextRight) const
{
    const int iMiddle = (rcClient.top + rcClient.bottom) / 2;
    const int iLeft = iTextRight + c_iRuleGap;
    if (iLeft >= rcClient.right)
    {
        return;
    }
    DrawLine(hDc, {iLeft, iMiddle, rcClient.right, iMiddle + 1}, c_crGrooveLight);
    DrawLine(hDc, {iLeft, iMiddle + 1, rcClient.right, iMiddle + 2}, c_crGrooveDark);
}
