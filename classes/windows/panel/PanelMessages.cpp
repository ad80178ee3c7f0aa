// The panel's window procedure and its own drawing: a part of CDataCtrlGroup with a file of its own.
#include "classes/core/PanelLayout.h"
#include "classes/windows/drawing/EntryFrame.h"
#include "classes/windows/drawing/OffScreenDrawing.h"
#include "classes/windows/drawing/WindowColours.h"
#include "classes/windows/panel/CDataCtrl.h"
#include "classes/windows/panel/CDataCtrlGroup.h"
#include "classes/windows/system/MessageTable.h"
#include "classes/windows/system/RectHelpers.h"

namespace
{
constexpr int c_iDividerLeft = 10; // the left edge of the labels

RECT ToClient(const CRect& rc, int iScroll)
{
    return {rc.left, rc.top - iScroll, rc.right, rc.bottom - iScroll};
}

void DrawLine(HDC hDc, int iLeft, int iRight, int y, COLORREF cr)
{
    const RECT rc{iLeft, y, iRight, y + 1};
    SetDCBrushColor(hDc, cr);
    FillRect(hDc, &rc, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

void DrawGroove(HDC hDc, const RECT& rc)
{
    const int iMiddle = (rc.top + rc.bottom) / 2;
    DrawLine(hDc, rc.left + c_iDividerLeft, rc.right, iMiddle - 1, c_crGrooveDark);
    DrawLine(hDc, rc.left + c_iDividerLeft, rc.right, iMiddle, c_crGrooveLight);
}
} // namespace

LRESULT CDataCtrlGroup::WndProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    m_hWnd = hWnd; // the first messages arrive before the creation returns
    static constexpr CMessageEntry<CDataCtrlGroup> c_table[] = {
        {WM_PAINT, &CDataCtrlGroup::On_Paint},
        {WM_ERASEBKGND, &CDataCtrlGroup::On_EraseBackground},
        {WM_PRINTCLIENT, &CDataCtrlGroup::On_PrintClient},
        {WM_SIZE, &CDataCtrlGroup::On_Size},
        {WM_MOVE, &CDataCtrlGroup::On_Move},
        {WM_VSCROLL, &CDataCtrlGroup::On_VScroll},
        {WM_MOUSEWHEEL, &CDataCtrlGroup::On_MouseWheel},
        {WM_LBUTTONDOWN, &CDataCtrlGroup::On_LButtonDown},
        {WM_NOTIFY, &CDataCtrlGroup::On_Notify},
        {WM_COMMAND, &CDataCtrlGroup::On_Command},
        {WM_CTLCOLOREDIT, &CDataCtrlGroup::On_ControlColour},
        {WM_CTLCOLORSTATIC, &CDataCtrlGroup::On_ControlColour},
        {WM_CTLCOLORLISTBOX, &CDataCtrlGroup::On_ControlColour},
        {WM_SETFONT, &CDataCtrlGroup::On_SetFont},
        {WM_GETFONT, &CDataCtrlGroup::On_GetFont},
        {WM_NCDESTROY, &CDataCtrlGroup::On_NcDestroy},
    };
    return DispatchMessage_Table(*this, c_table, hWnd, uMessage, wParam, lParam);
}

HWND CDataCtrlGroup::Host_GetWindow() const
{
    return m_hWnd;
}

HINSTANCE CDataCtrlGroup::Host_GetInstance() const
{
    return m_hInstance;
}

HFONT CDataCtrlGroup::Host_GetFont(bool bBold) const
{
    return bBold && m_FontBold ? m_FontBold.Get() : m_hFontGui;
}

std::wstring* CDataCtrlGroup::Host_GetDebugLog() const
{
    return m_pDebugLog;
}

void CDataCtrlGroup::Host_DrawBehind(HDC hDc, HWND hChild)
{
    const RECT rcBackdrop = GetBackdropRect(hChild, GetAncestor(m_hWnd, GA_ROOT));
    m_picBackdrop.SetDrawingRect(&rcBackdrop);
    m_picBackdrop.DrawByMode(hDc, m_eDrawMode);
}

void CDataCtrlGroup::Host_RowFocused(short iIndex, bool bFocused)
{
    InvalidateRect(m_hWnd, nullptr, FALSE); // the panel draws the frames of the entries
    if (bFocused)
    {
        EnsureVisible(iIndex);
    }
}

std::optional<LRESULT> CDataCtrlGroup::On_Paint(WPARAM, LPARAM)
{
    PAINTSTRUCT paint{};
    const HDC hDc = BeginPaint(m_hWnd, &paint);
    if (hDc != nullptr && !IsRectEmpty_Plain(paint.rcPaint))
    {
        DrawOffScreenIfPossible(hDc, paint.rcPaint, [this](HDC hBuffer) { DrawPanel(hBuffer); });
    }
    EndPaint(m_hWnd, &paint);
    return 0;
}

std::optional<LRESULT> CDataCtrlGroup::On_EraseBackground(WPARAM, LPARAM)
{
    return 1;
}

std::optional<LRESULT> CDataCtrlGroup::On_PrintClient(WPARAM wParam, LPARAM)
{
    DrawPanel(reinterpret_cast<HDC>(wParam));
    return 0;
}

// Draws the backdrop, the dividers, and the frames around the entries.
void CDataCtrlGroup::DrawPanel(HDC hDc)
{
    Host_DrawBehind(hDc, m_hWnd);
    const CPanelLayout layout = GetLayout();
    const int iScroll = GetScrollPosition();
    const HWND hFocus = GetFocus();
    for (std::size_t i = 0; i < m_ctrls.size(); ++i)
    {
        const CDataCtrl& ctrl = *m_ctrls[i];
        if (ctrl.GetSpec().eType == EnumDataCtrlType::Divider)
        {
            DrawGroove(hDc, ToClient(layout.rows[i].rcRow, iScroll));
        }
        if (!ctrl.IsEntry())
        {
            continue;
        }
        CEntryLook look;
        look.bFocus = hFocus == ctrl.GetControlWindow();
        look.bEnabled = ctrl.GetState() == EnumShowState::InUse;
        DrawEntryFrame(hDc, ToClient(layout.rows[i].rcControl, iScroll), look);
    }
}

// A click on an entry's frame, beside the control itself, counts for the entry.
std::optional<LRESULT> CDataCtrlGroup::On_LButtonDown(WPARAM, LPARAM lParam)
{
    const POINT pt{static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
    const CPanelLayout layout = GetLayout();
    const int iScroll = GetScrollPosition();
    for (std::size_t i = 0; i < m_ctrls.size(); ++i)
    {
        if (PointInRect(ToClient(layout.rows[i].rcControl, iScroll), pt) &&
            m_ctrls[i]->GetState() == EnumShowState::InUse && m_ctrls[i]->GetControlWindow() != nullptr)
        {
            SetFocus(m_ctrls[i]->GetControlWindow());
        }
    }
    return 0;
}

std::optional<LRESULT> CDataCtrlGroup::On_Notify(WPARAM wParam, LPARAM lParam)
{
    const NMHDR& header = *reinterpret_cast<const NMHDR*>(lParam);
    if (header.code == c_uButtonFocused)
    {
        EnsureVisible(GetCtrlIndex(header.hwndFrom));
        return 0;
    }
    if (header.code == c_uButtonClicked)
    {
        return SendMessage_Show(GetParent(m_hWnd), WM_NOTIFY, wParam, lParam);
    }
    return std::nullopt;
}

// The main window handles a list's notifications. The system sends CBN_SELENDOK for a choice that was confirmed in the
// open list or made by keys in the closed one. If a system leaves it out for keys, it is added here.
std::optional<LRESULT> CDataCtrlGroup::On_Command(WPARAM wParam, LPARAM lParam)
{
    const HWND hList = reinterpret_cast<HWND>(lParam);
    const short iIndex = GetCtrlIndex(hList);
    if (iIndex < 0 || GetType(iIndex) != EnumDataCtrlType::DropDownList)
    {
        return 0;
    }
    const UINT uCode = HIWORD(wParam);
    const LRESULT iSelected = SendMessageW(hList, CB_GETCURSEL, 0, 0);
    const LRESULT result = SendMessageW(GetParent(m_hWnd), WM_COMMAND, wParam, lParam);
    if (uCode == CBN_SELENDOK)
    {
        m_iConfirmed = iSelected;
    }
    if (uCode != CBN_SELCHANGE || SendMessageW(hList, CB_GETDROPPEDSTATE, 0, 0))
    {
        return result;
    }
    if (iSelected != m_iConfirmed)
    {
        SendMessageW(GetParent(m_hWnd), WM_COMMAND, MAKEWPARAM(LOWORD(wParam), CBN_SELENDOK), lParam);
    }
    m_iConfirmed = -1;
    return result;
}

// Entries ask for their colours while they draw themselves; a disabled one asks as a static text does.
std::optional<LRESULT> CDataCtrlGroup::On_ControlColour(WPARAM wParam, LPARAM lParam)
{
    const short iIndex = GetCtrlIndex(reinterpret_cast<HWND>(lParam));
    CEntryLook look;
    look.bEnabled = iIndex < 0 || ShowState_GetState(iIndex) == EnumShowState::InUse;
    const HDC hDc = reinterpret_cast<HDC>(wParam);
    SetTextColor(hDc, GetEntryTextColour(look));
    SetBkColor(hDc, GetEntryColour(look));
    return reinterpret_cast<LRESULT>(look.bEnabled ? m_EntryBrush.Get() : m_EntryBrushGreyed.Get());
}

std::optional<LRESULT> CDataCtrlGroup::On_SetFont(WPARAM, LPARAM)
{
    return 0; // the rows are laid out for the program's own font
}

std::optional<LRESULT> CDataCtrlGroup::On_GetFont(WPARAM, LPARAM)
{
    return reinterpret_cast<LRESULT>(m_hFontGui);
}

std::optional<LRESULT> CDataCtrlGroup::On_NcDestroy(WPARAM wParam, LPARAM lParam)
{
    m_bWindowReady = false;
    m_bDestroyed = true;
    const HWND hWnd = m_hWnd;
    m_hWnd = nullptr;
    return DefWindowProcW(hWnd, WM_NCDESTROY, wParam, lParam);
}
