#include "classes/windows/window/MessageBoxDialog.h"

#include "classes/windows/system/RectHelpers.h"
#include "classes/windows/system/ShowCreateWindow.h"
#include "classes/windows/system/WndProcForward.h"

#include <commctrl.h>

#include <algorithm>

namespace
{
// All lengths are in pixels.
constexpr int c_iMargin = 20;
constexpr int c_iIconGap = 16;
constexpr int c_iMaxTextWidth = 600;
constexpr int c_iTextSlack = 16; // letters may reach a little further than their measure
constexpr int c_iMinTextWidth = 180;
constexpr int c_iFooterMargin = 12;
constexpr int c_iButtonHeight = 26;
constexpr int c_iMinButtonWidth = 88;
constexpr int c_iButtonInset = 16; // between the button's label and its edges, both sides together
constexpr int c_iIconId = 20;      // identifiers that mean nothing to the system
constexpr int c_iTextId = 21;

// A dialog without controls; they are added after its text has been measured. The three zeros after the record mean no
// menu, the system's dialog class and no title.
struct CEmptyTemplate
{
    DLGTEMPLATE record;
    WORD uMenu;
    WORD uClass;
    WORD uTitle;
};

CEmptyTemplate MakeTemplate()
{
    CEmptyTemplate result{};
    result.record.style = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME;
    result.record.dwExtendedStyle = WS_EX_DLGMODALFRAME | WS_EX_CONTROLPARENT;
    return result;
}

int Centre(int iLow, int iHigh, int iLength)
{
    return iLow + (iHigh - iLow - iLength) / 2;
}
} // namespace

CMessageBoxDialog::CMessageBoxDialog(const CWString& sText, const CWString& sTitle, const CWString& sLabel, HFONT hFont,
                                     std::wstring* pDebugLog)
    : m_sText(sText),
      m_sTitle(sTitle),
      m_sLabel(sLabel),
      m_hFont(hFont != nullptr ? hFont : static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT))),
      m_pDebugLog(pDebugLog)
{
}

CMessageBoxDialog::~CMessageBoxDialog()
{
    Destroy();
}

bool CMessageBoxDialog::Create(HINSTANCE hInstance, HWND hOwner)
{
    m_hOwner = hOwner;
    const CEmptyTemplate dialogTemplate = MakeTemplate();
    const HWND hWnd = CreateDialogIndirectParamW(hInstance, &dialogTemplate.record, hOwner, DialogProc,
                                                 reinterpret_cast<LPARAM>(this));
    if (hWnd == nullptr)
    {
        return false;
    }
    ShowCreateWindow(m_pDebugLog, this, L"CMessageBoxDialog", L"m_hWnd", hWnd, m_sTitle.c_str());
    CreateControls(hInstance);
    MessageBeep(MB_ICONWARNING);
    ShowWindow(hWnd, SW_SHOW);
    SetForegroundWindow(hWnd);
    SetFocus(GetDlgItem(hWnd, IDOK));
    return true;
}

void CMessageBoxDialog::Destroy()
{
    if (m_hWnd != nullptr)
    {
        DestroyWindow(m_hWnd);
    }
}

SIZE CMessageBoxDialog::MeasureText(const CWString& sText, int iMaxWidth) const
{
    const CWindowDc dc(m_hWnd);
    const CSelectObject font(dc.Get(), m_hFont);
    RECT rc{0, 0, iMaxWidth, 0};
    DrawTextW(dc.Get(), sText.c_str(), sText.GetLength(), &rc,
              DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX | DT_EXPANDTABS);
    return {GetRectWidth(rc), GetRectHeight(rc)};
}

HWND CMessageBoxDialog::CreateControl(HINSTANCE hInstance, const wchar_t* sClass, const wchar_t* sText, DWORD uStyle,
                                      const RECT& rc, int iId)
{
    const HWND hControl = CreateWindowExW(0, sClass, sText, WS_CHILD | WS_VISIBLE | uStyle, rc.left, rc.top,
                                          GetRectWidth(rc), GetRectHeight(rc), m_hWnd,
                                          reinterpret_cast<HMENU>(static_cast<INT_PTR>(iId)), hInstance, nullptr);
    SendMessageW(hControl, WM_SETFONT, reinterpret_cast<WPARAM>(m_hFont), FALSE);
    return hControl;
}

void CMessageBoxDialog::CreateControls(HINSTANCE hInstance)
{
    SetWindowTextW(m_hWnd, m_sTitle.c_str());
    const int iIcon = GetSystemMetrics(SM_CXICON);
    const SIZE sizeText = MeasureText(m_sText, c_iMaxTextWidth);
    const SIZE sizeLabel = MeasureText(m_sLabel, c_iMaxTextWidth);
    const int iTextWidth = std::max<int>(sizeText.cx + c_iTextSlack, c_iMinTextWidth);
    const int iTextLeft = c_iMargin + iIcon + c_iIconGap;
    const int iBodyHeight = std::max<int>(sizeText.cy, iIcon);
    const int iWidth = iTextLeft + iTextWidth + c_iMargin;
    m_iFooterTop = c_iMargin + iBodyHeight + c_iMargin;
    const SIZE sizeClient{iWidth, m_iFooterTop + c_iFooterMargin + c_iButtonHeight + c_iFooterMargin};

    const HWND hIcon = CreateControl(hInstance, WC_STATICW, nullptr, SS_ICON,
                                     {c_iMargin, c_iMargin, c_iMargin + iIcon, c_iMargin + iIcon}, c_iIconId);
    SendMessageW(hIcon, STM_SETICON, reinterpret_cast<WPARAM>(LoadIconW(nullptr, IDI_WARNING)), 0);
    // A text lower than the icon is centred on it.
    const int iTextTop = Centre(c_iMargin, c_iMargin + iBodyHeight, sizeText.cy);
    CreateControl(hInstance, WC_STATICW, m_sText.c_str(), SS_LEFT | SS_NOPREFIX,
                  {iTextLeft, iTextTop, iTextLeft + iTextWidth, iTextTop + sizeText.cy}, c_iTextId);
    const int iButtonWidth = std::max<int>(c_iMinButtonWidth, sizeLabel.cx + 2 * c_iButtonInset);
    const int iButtonTop = m_iFooterTop + c_iFooterMargin;
    CreateControl(
        hInstance, WC_BUTTONW, m_sLabel.c_str(), BS_DEFPUSHBUTTON | WS_TABSTOP,
        {iWidth - c_iFooterMargin - iButtonWidth, iButtonTop, iWidth - c_iFooterMargin, iButtonTop + c_iButtonHeight},
        IDOK);
    // The label has no mnemonic, because there is only this button: Enter presses it.
    SendMessageW(m_hWnd, DM_SETDEFID, IDOK, 0);
    PlaceWindow(sizeClient);
}

// Centres the dialog on its owner, but always wholly on the owner's monitor.
void CMessageBoxDialog::PlaceWindow(const SIZE& sizeClient)
{
    RECT rc{0, 0, sizeClient.cx, sizeClient.cy};
    AdjustWindowRectEx(&rc, static_cast<DWORD>(GetWindowLongW(m_hWnd, GWL_STYLE)), FALSE,
                       static_cast<DWORD>(GetWindowLongW(m_hWnd, GWL_EXSTYLE)));
    const int iWidth = GetRectWidth(rc);
    const int iHeight = GetRectHeight(rc);
    MONITORINFO info{};
    info.cbSize = sizeof(info);
    GetMonitorInfoW(MonitorFromWindow(m_hOwner, MONITOR_DEFAULTTOPRIMARY), &info);
    RECT rcOwner = info.rcWork;
    if (m_hOwner != nullptr && !IsIconic(m_hOwner))
    {
        GetWindowRect(m_hOwner, &rcOwner);
    }
    const RECT& rcWork = info.rcWork;
    const int iLeft =
        std::max<int>(rcWork.left, std::min<int>(Centre(rcOwner.left, rcOwner.right, iWidth), rcWork.right - iWidth));
    const int iTop =
        std::max<int>(rcWork.top, std::min<int>(Centre(rcOwner.top, rcOwner.bottom, iHeight), rcWork.bottom - iHeight));
    SetWindowPos(m_hWnd, nullptr, iLeft, iTop, iWidth, iHeight, SWP_NOZORDER | SWP_NOACTIVATE);
}

INT_PTR CALLBACK CMessageBoxDialog::DialogProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam) noexcept
{
    if (uMessage == WM_INITDIALOG)
    {
        SetWindowLongPtrW(hWnd, DWLP_USER, lParam);
        reinterpret_cast<CMessageBoxDialog*>(lParam)->m_hWnd = hWnd;
        return FALSE; // the focus is set after the button is made
    }
    auto* const pDialog = reinterpret_cast<CMessageBoxDialog*>(GetWindowLongPtrW(hWnd, DWLP_USER));
    if (pDialog == nullptr)
    {
        return FALSE;
    }
    return CReportingGuard{}(pDialog->m_pDebugLog, [&] { return pDialog->On_Message(uMessage, wParam, lParam); });
}

INT_PTR CMessageBoxDialog::On_Message(UINT uMessage, WPARAM wParam, LPARAM)
{
    switch (uMessage)
    {
    case WM_COMMAND: // the button and Enter say OK; Escape and the close box say Cancel
        if (LOWORD(wParam) != IDOK && LOWORD(wParam) != IDCANCEL)
        {
            return FALSE;
        }
        m_bAnswered = true;
        return TRUE;
    case WM_ERASEBKGND:
        Paint(reinterpret_cast<HDC>(wParam));
        SetWindowLongPtrW(m_hWnd, DWLP_MSGRESULT, TRUE);
        return TRUE;
    case WM_CTLCOLORSTATIC:
        SetTextColor(reinterpret_cast<HDC>(wParam), GetSysColor(COLOR_WINDOWTEXT));
        SetBkColor(reinterpret_cast<HDC>(wParam), GetSysColor(COLOR_WINDOW));
        return reinterpret_cast<INT_PTR>(GetSysColorBrush(COLOR_WINDOW));
    case WM_NCDESTROY:
        m_hWnd = nullptr;
        return FALSE;
    default:
        return FALSE;
    }
}

void CMessageBoxDialog::Paint(HDC hDc) const
{
    RECT rcClient{};
    GetClientRect(m_hWnd, &rcClient);
    const RECT rcBody{rcClient.left, rcClient.top, rcClient.right, m_iFooterTop};
    const RECT rcFooter{rcClient.left, m_iFooterTop, rcClient.right, rcClient.bottom};
    const RECT rcLine{rcClient.left, m_iFooterTop, rcClient.right, m_iFooterTop + 1};
    FillRect(hDc, &rcBody, GetSysColorBrush(COLOR_WINDOW));
    FillRect(hDc, &rcFooter, GetSysColorBrush(COLOR_BTNFACE));
    FillRect(hDc, &rcLine, GetSysColorBrush(COLOR_3DLIGHT));
}
