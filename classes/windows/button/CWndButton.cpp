#include "classes/windows/button/CWndButton.h"

#include "classes/core/CColour.h"
#include "classes/core/CLibrarySettings.h"
#include "classes/core/ColourMath.h"
#include "classes/windows/system/MessageTable.h"
#include "classes/windows/system/RectHelpers.h"
#include "classes/windows/system/RegisterOwnClass.h"
#include "classes/windows/system/ShowCreateWindow.h"
#include "classes/windows/system/WindowText.h"
#include "classes/windows/system/WndProcForward.h"

namespace
{
bool RegisterButtonClass(HINSTANCE hInstance)
{
    WNDCLASSEXW record{};
    record.cbSize = sizeof(record);
    record.style = CS_HREDRAW | CS_VREDRAW;
    record.lpfnWndProc = WndProcForward<CWndButton>;
    record.hInstance = hInstance;
    record.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    record.lpszClassName = c_sButtonClass;
    return RegisterOwnClass(record);
}
} // namespace

CWndButton::CWndButton() : m_crNormal(GetLibrarySettings().crButtonFace), m_crPressed(m_crNormal)
{
    m_crText = GetContrastColour(m_crNormal);
}

CWndButton::~CWndButton()
{
    if (m_hWnd == nullptr)
    {
        return;
    }
    WndProc_SetObject(m_hWnd, nullptr);
    DestroyWindow(m_hWnd);
}

bool CWndButton::Initialize(HINSTANCE hInstance, CWndCommon* pParent, bool bRightToLeft, const CPicture* pBackdrop,
                            const CWString& sText, HFONT hFont, bool bVisible, const RECT* pRect)
{
    if (m_hWnd != nullptr || pParent == nullptr || !RegisterButtonClass(hInstance))
    {
        return false;
    }
    m_pParent = pParent;
    m_pDebugLog = pParent->GetDebugLog();
    m_hFont = hFont != nullptr ? hFont : pParent->GetFont();
    if (const CPicture* pPicture = pBackdrop != nullptr ? pBackdrop : pParent->GetBackdrop())
    {
        m_picBackdrop = *pPicture;
    }
    const RECT rc = pRect != nullptr ? *pRect : RECT{};
    const DWORD uStyle = WS_CHILD | WS_TABSTOP | (bVisible ? WS_VISIBLE : 0u);
    const HWND hWnd =
        CreateWindowExW(bRightToLeft ? WS_EX_RTLREADING : 0u, c_sButtonClass, sText.c_str(), uStyle, rc.left, rc.top,
                        GetRectWidth(rc), GetRectHeight(rc), pParent->GetWindowHandle(), nullptr, hInstance, this);
    if (hWnd == nullptr)
    {
        return false;
    }
    m_hWnd = hWnd;
    ShowCreateWindow(m_pDebugLog, this, c_sButtonClass, L"m_hWnd", m_hWnd, sText.c_str());
    return true;
}

void CWndButton::SetBackground(COLORREF crNormal, COLORREF crPressed, bool bContrastText, bool bShade, bool bRedraw)
{
    m_crNormal = crNormal;
    m_crPressed = crPressed;
    m_bShade = bShade;
    if (bContrastText)
    {
        m_crText = GetContrastColour(crNormal);
    }
    if (!bRedraw || m_hWnd == nullptr)
    {
        return;
    }
    Invalidate();
    UpdateWindow(m_hWnd);
}

void CWndButton::SetText(const CWString& sText)
{
    if (m_hWnd != nullptr)
    {
        SetWindowTextW(m_hWnd, sText.c_str());
    }
}

CWString CWndButton::GetText() const
{
    return m_hWnd != nullptr ? ReadWindowText(m_hWnd) : CWString();
}

CWString CWndButton::GetAccessibleName() const
{
    return m_sAccessibleName.IsEmpty() ? GetText() : m_sAccessibleName;
}

// A swatch's value is its colour, written as on the web.
CWString CWndButton::GetAccessibleValue() const
{
    CWString sColour;
    if (m_bSwatch)
    {
        sColour.Format(L"#%02X%02X%02X", unsigned{GetRed(m_crNormal)}, unsigned{GetGreen(m_crNormal)},
                       unsigned{GetBlue(m_crNormal)});
    }
    return sColour;
}

// The handle may belong to a window of another class by now.
const IAccessibleButton* CWndButton::FindButton(HWND hWnd)
{
    constexpr int c_iRoom = 32;
    wchar_t sClass[c_iRoom]{};
    if (!IsWindow(hWnd) || GetClassNameW(hWnd, sClass, c_iRoom) == 0 || lstrcmpW(sClass, c_sButtonClass) != 0)
    {
        return nullptr;
    }
    return WndProc_GetObject<CWndButton>(hWnd);
}

// The parent may destroy the button while it handles the click: no member may be used afterwards.
void CWndButton::Click()
{
    if (m_hWnd == nullptr || !IsWindowEnabled(m_hWnd))
    {
        return;
    }
    NMHDR header{};
    header.hwndFrom = m_hWnd;
    header.idFrom = static_cast<UINT_PTR>(GetDlgCtrlID(m_hWnd));
    header.code = c_uButtonClicked;
    SendMessageW(GetParent(m_hWnd), WM_NOTIFY, header.idFrom, reinterpret_cast<LPARAM>(&header));
}

LRESULT CWndButton::WndProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    m_hWnd = hWnd; // the first messages arrive before the creation returns
    static constexpr CMessageEntry<CWndButton> c_table[] = {
        {WM_PAINT, &CWndButton::On_Paint},
        {WM_ERASEBKGND, &CWndButton::On_EraseBackground},
        {WM_PRINTCLIENT, &CWndButton::On_PrintClient},
        {WM_LBUTTONDOWN, &CWndButton::On_LButtonDown},
        {WM_LBUTTONUP, &CWndButton::On_LButtonUp},
        {WM_MOUSEMOVE, &CWndButton::On_MouseMove},
        {WM_MOUSELEAVE, &CWndButton::On_MouseLeave},
        {WM_CAPTURECHANGED, &CWndButton::On_CaptureChanged},
        {WM_CANCELMODE, &CWndButton::On_CancelMode},
        {WM_KEYDOWN, &CWndButton::On_KeyDown},
        {WM_KEYUP, &CWndButton::On_KeyUp},
        {WM_SETFOCUS, &CWndButton::On_SetFocus},
        {WM_KILLFOCUS, &CWndButton::On_KillFocus},
        {WM_ENABLE, &CWndButton::On_Enable},
        {WM_SETTEXT, &CWndButton::On_SetText},
        {WM_SETFONT, &CWndButton::On_SetFont},
        {WM_GETFONT, &CWndButton::On_GetFont},
        {WM_GETDLGCODE, &CWndButton::On_GetDlgCode},
        {WM_GETOBJECT, &CWndButton::On_GetObject},
        {BM_CLICK, &CWndButton::On_ClickMessage},
        {WM_MOVE, &CWndButton::On_Move},
        {WM_NCDESTROY, &CWndButton::On_NcDestroy},
    };
    return DispatchMessage_Table(*this, c_table, hWnd, uMessage, wParam, lParam);
}

std::optional<LRESULT> CWndButton::On_SetText(WPARAM wParam, LPARAM lParam)
{
    const LRESULT result = DefWindowProcW(m_hWnd, WM_SETTEXT, wParam, lParam);
    Invalidate();
    return result;
}

std::optional<LRESULT> CWndButton::On_SetFont(WPARAM wParam, LPARAM lParam)
{
    m_hFont = reinterpret_cast<HFONT>(wParam);
    if (LOWORD(lParam) != FALSE)
    {
        Invalidate();
    }
    return 0;
}

std::optional<LRESULT> CWndButton::On_GetFont(WPARAM, LPARAM)
{
    return reinterpret_cast<LRESULT>(m_hFont);
}

std::optional<LRESULT> CWndButton::On_GetDlgCode(WPARAM, LPARAM)
{
    return DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON;
}

std::optional<LRESULT> CWndButton::On_GetObject(WPARAM wParam, LPARAM lParam)
{
    if (static_cast<DWORD>(lParam) != static_cast<DWORD>(OBJID_CLIENT))
    {
        return std::nullopt;
    }
    return ButtonAccessible_Answer(m_hWnd, wParam, FindButton);
}

std::optional<LRESULT> CWndButton::On_ClickMessage(WPARAM, LPARAM)
{
    Click();
    return 0;
}

// The backdrop behind the corners does not move with the button.
std::optional<LRESULT> CWndButton::On_Move(WPARAM, LPARAM)
{
    Invalidate();
    return 0;
}

std::optional<LRESULT> CWndButton::On_NcDestroy(WPARAM wParam, LPARAM lParam)
{
    const HWND hWnd = m_hWnd;
    m_hWnd = nullptr;
    return DefWindowProcW(hWnd, WM_NCDESTROY, wParam, lParam);
}
