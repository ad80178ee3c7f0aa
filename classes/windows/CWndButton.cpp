#include "classes/windows/CWndButton.h"

#include "classes/windows/ButtonAccessible.h"
#include "classes/windows/ColourMath.h"
#include "classes/windows/MainWindowKeys.h"
#include "classes/windows/MessageTable.h"
#include "classes/windows/PaintBuffer.h"
#include "classes/windows/RectHelpers.h"
#include "classes/windows/ShowCreateWindow.h"
#include "classes/windows/WindowColours.h"
#include "classes/windows/WindowText.h"
#include "classes/windows/WndProcForward.h"

namespace
{
constexpr LPARAM c_iRepeated = LPARAM{1} << 30; // the bit of a key message that says the key was down before

bool RegisterButtonClass(HINSTANCE hInstance)
{
    WNDCLASSEXW record{};
    record.cbSize = sizeof(record);
    if (GetClassInfoExW(hInstance, c_sButtonClass, &record))
        return true;
    record.cbSize = sizeof(record);
    record.style = CS_HREDRAW | CS_VREDRAW;
    record.lpfnWndProc = WndProcForward<CWndButton>;
    record.hInstance = hInstance;
    record.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    record.lpszClassName = c_sButtonClass;
    return RegisterClassExW(&record) != 0;
}
} // namespace

CWndButton::CWndButton() : m_crNormal(c_crButtonFace), m_crPressed(c_crButtonFace)
{
    m_crText = GetContrastColour(m_crNormal);
}

CWndButton::~CWndButton()
{
    if (m_hWnd == nullptr)
        return;
    WndProc_SetObject(m_hWnd, nullptr);
    DestroyWindow(m_hWnd);
}

bool CWndButton::Initialize(HINSTANCE hInstance, CWndCommon* pParent, bool bRightToLeft, const CPicture* pBackdrop,
                            const CWString& sText, HFONT hFont, bool bVisible, const RECT* pRect)
{
    if (m_hWnd != nullptr || pParent == nullptr || !RegisterButtonClass(hInstance))
        return false;
    m_pParent = pParent;
    m_pDebugLog = pParent->GetDebugLog();
    m_hFont = hFont != nullptr ? hFont : pParent->GetFont();
    if (const CPicture* pPicture = pBackdrop != nullptr ? pBackdrop : pParent->GetBackdrop())
        m_picBackdrop = *pPicture;
    const RECT rc = pRect != nullptr ? *pRect : RECT{};
    const DWORD uStyle = WS_CHILD | WS_TABSTOP | (bVisible ? WS_VISIBLE : 0u);
    const HWND hWnd =
        CreateWindowExW(bRightToLeft ? WS_EX_RTLREADING : 0u, c_sButtonClass, sText.c_str(), uStyle, rc.left, rc.top,
                        GetRectWidth(rc), GetRectHeight(rc), pParent->GetWindowHandle(), nullptr, hInstance, this);
    if (hWnd == nullptr)
        return false;
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
        m_crText = GetContrastColour(crNormal);
    if (!bRedraw || m_hWnd == nullptr)
        return;
    Invalidate();
    UpdateWindow(m_hWnd);
}

void CWndButton::SetText(const CWString& sText)
{
    if (m_hWnd != nullptr)
        SetWindowTextW(m_hWnd, sText.c_str());
}

CWString CWndButton::GetText() const
{
    return m_hWnd != nullptr ? ReadWindowText(m_hWnd) : CWString();
}

CWString CWndButton::GetAccessibleName() const
{
    return m_sAccessibleName.IsEmpty() ? GetText() : m_sAccessibleName;
}

// The parent may destroy the button while it handles the click: nothing of the object is touched afterwards.
void CWndButton::Click()
{
    if (m_hWnd == nullptr || !IsWindowEnabled(m_hWnd))
        return;
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
        {WM_PAINT, &CWndButton::OnPaint},
        {WM_ERASEBKGND, &CWndButton::OnEraseBackground},
        {WM_PRINTCLIENT, &CWndButton::OnPrintClient},
        {WM_LBUTTONDOWN, &CWndButton::OnLButtonDown},
        {WM_LBUTTONUP, &CWndButton::OnLButtonUp},
        {WM_MOUSEMOVE, &CWndButton::OnMouseMove},
        {WM_MOUSELEAVE, &CWndButton::OnMouseLeave},
        {WM_CAPTURECHANGED, &CWndButton::OnCaptureChanged},
        {WM_CANCELMODE, &CWndButton::OnCancelMode},
        {WM_KEYDOWN, &CWndButton::OnKeyDown},
        {WM_KEYUP, &CWndButton::OnKeyUp},
        {WM_SETFOCUS, &CWndButton::OnSetFocus},
        {WM_KILLFOCUS, &CWndButton::OnKillFocus},
        {WM_ENABLE, &CWndButton::OnEnable},
        {WM_SETTEXT, &CWndButton::OnSetText},
        {WM_SETFONT, &CWndButton::OnSetFont},
        {WM_GETFONT, &CWndButton::OnGetFont},
        {WM_GETDLGCODE, &CWndButton::OnGetDlgCode},
        {WM_GETOBJECT, &CWndButton::OnGetObject},
        {BM_CLICK, &CWndButton::OnClickMessage},
        {WM_MOVE, &CWndButton::OnMove},
        {WM_NCDESTROY, &CWndButton::OnNcDestroy},
    };
    return DispatchMessage_Table(*this, c_table, hWnd, uMessage, wParam, lParam);
}

std::optional<LRESULT> CWndButton::OnLButtonDown(WPARAM, LPARAM)
{
    SetFocus(m_hWnd);
    SetCapture(m_hWnd);
    m_bMouseDown = true;
    SetPressed(true);
    return 0;
}

std::optional<LRESULT> CWndButton::OnLButtonUp(WPARAM, LPARAM lParam)
{
    if (!m_bMouseDown)
        return 0;
    RECT rcClient{};
    GetClientRect(m_hWnd, &rcClient);
    const POINT pt{static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
    ReleaseCapture(); // ends the press
    if (PointInRect(rcClient, pt))
        Click();
    return 0;
}

std::optional<LRESULT> CWndButton::OnMouseMove(WPARAM, LPARAM lParam)
{
    RECT rcClient{};
    GetClientRect(m_hWnd, &rcClient);
    const POINT pt{static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
    if (m_bMouseDown)
        SetPressed(PointInRect(rcClient, pt));
    if (!m_bHover)
    {
        TRACKMOUSEEVENT track{};
        track.cbSize = sizeof(track);
        track.dwFlags = TME_LEAVE;
        track.hwndTrack = m_hWnd;
        TrackMouseEvent(&track);
        m_bHover = true;
        Invalidate();
    }
    return 0;
}

std::optional<LRESULT> CWndButton::OnMouseLeave(WPARAM, LPARAM)
{
    m_bHover = false;
    Invalidate();
    return 0;
}

std::optional<LRESULT> CWndButton::OnCaptureChanged(WPARAM, LPARAM)
{
    m_bMouseDown = false;
    SetPressed(false);
    return 0;
}

// Sent before the button is disabled, while it still has the focus: see OnEnable.
std::optional<LRESULT> CWndButton::OnCancelMode(WPARAM, LPARAM)
{
    m_bFocusLost = GetFocus() == m_hWnd;
    m_bSpaceDown = false;
    SetPressed(false);
    return std::nullopt; // the system gives the mouse free
}

std::optional<LRESULT> CWndButton::OnKeyDown(WPARAM wParam, LPARAM lParam)
{
    if ((lParam & c_iRepeated) != 0)
        return wParam == VK_SPACE || wParam == VK_RETURN ? std::optional<LRESULT>(0) : std::nullopt;
    if (wParam == VK_SPACE)
    {
        m_bSpaceDown = true;
        SetPressed(true);
        return 0;
    }
    if (wParam == VK_RETURN)
    {
        Click();
        return 0;
    }
    return std::nullopt;
}

std::optional<LRESULT> CWndButton::OnKeyUp(WPARAM wParam, LPARAM lParam)
{
    if (wParam == VK_SPACE)
    {
        const bool bClick = m_bSpaceDown;
        m_bSpaceDown = false;
        SetPressed(false);
        if (bClick)
            Click();
        return 0;
    }
    if (!IsMainWindowKey(wParam))
        return std::nullopt;
    ForwardKeyUp(m_hWnd, wParam, lParam);
    return 0;
}

// The panel brings a row into view when its control is given the focus.
std::optional<LRESULT> CWndButton::OnSetFocus(WPARAM, LPARAM)
{
    Invalidate();
    NMHDR header{};
    header.hwndFrom = m_hWnd;
    header.idFrom = static_cast<UINT_PTR>(GetDlgCtrlID(m_hWnd));
    header.code = c_uButtonFocused;
    SendMessageW(GetParent(m_hWnd), WM_NOTIFY, header.idFrom, reinterpret_cast<LPARAM>(&header));
    return 0;
}

std::optional<LRESULT> CWndButton::OnKillFocus(WPARAM, LPARAM)
{
    m_bSpaceDown = false;
    SetPressed(false);
    Invalidate();
    return 0;
}

// A window that is disabled while it has the focus leaves the keyboard without any: no key would reach the program.
// The main window takes the focus meanwhile, and the button gets it back unless it has moved on.
std::optional<LRESULT> CWndButton::OnEnable(WPARAM wParam, LPARAM)
{
    const HWND hMain = GetAncestor(m_hWnd, GA_ROOT);
    const HWND hFocus = GetFocus();
    if (wParam == FALSE && m_bFocusLost && (hFocus == nullptr || hFocus == m_hWnd))
        SetFocus(hMain);
    else if (wParam != FALSE && m_bFocusLost && hFocus == hMain)
        SetFocus(m_hWnd);
    if (wParam != FALSE)
        m_bFocusLost = false;
    Invalidate();
    return 0;
}

std::optional<LRESULT> CWndButton::OnSetText(WPARAM wParam, LPARAM lParam)
{
    const LRESULT result = DefWindowProcW(m_hWnd, WM_SETTEXT, wParam, lParam);
    Invalidate();
    return result;
}

std::optional<LRESULT> CWndButton::OnSetFont(WPARAM wParam, LPARAM lParam)
{
    m_hFont = reinterpret_cast<HFONT>(wParam);
    if (LOWORD(lParam) != FALSE)
        Invalidate();
    return 0;
}

std::optional<LRESULT> CWndButton::OnGetFont(WPARAM, LPARAM)
{
    return reinterpret_cast<LRESULT>(m_hFont);
}

std::optional<LRESULT> CWndButton::OnGetDlgCode(WPARAM, LPARAM)
{
    return DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON;
}

std::optional<LRESULT> CWndButton::OnGetObject(WPARAM wParam, LPARAM lParam)
{
    if (static_cast<DWORD>(lParam) != static_cast<DWORD>(OBJID_CLIENT))
        return std::nullopt;
    return ButtonAccessible_Answer(m_hWnd, wParam);
}

std::optional<LRESULT> CWndButton::OnClickMessage(WPARAM, LPARAM)
{
    Click();
    return 0;
}

// The backdrop behind the corners stays where it is when the button moves.
std::optional<LRESULT> CWndButton::OnMove(WPARAM, LPARAM)
{
    Invalidate();
    return 0;
}

std::optional<LRESULT> CWndButton::OnNcDestroy(WPARAM wParam, LPARAM lParam)
{
    const HWND hWnd = m_hWnd;
    m_hWnd = nullptr;
    return DefWindowProcW(hWnd, WM_NCDESTROY, wParam, lParam);
}
