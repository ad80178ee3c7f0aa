#include "classes/windows/panel/CPanelList.h"

#include "classes/windows/accessibility/ListAccessible.h"
#include "classes/windows/drawing/ClientDrawing.h"
#include "classes/windows/drawing/EntryFrame.h"
#include "classes/windows/system/Handles.h"
#include "classes/windows/system/MessageTable.h"
#include "classes/windows/system/RectHelpers.h"
#include "classes/windows/system/ShowCreateWindow.h"
#include "classes/windows/system/SubclassForward.h"

namespace
{
constexpr int c_iDroppedHeight = 200; // room for the list; it opens only as high as its items
constexpr int c_iTextInset = 6;
constexpr int c_iArrowRight = 12; // from the right edge to the arrow's middle
constexpr int c_iArrowHalf = 4;
constexpr LPARAM c_iRepeated = LPARAM{1} << 30;            // the bit of a key message that says the key was down before
constexpr WPARAM c_wClosedField = static_cast<WPARAM>(-1); // the number of the closed list's own field

std::wstring GetSelectedText(HWND hList)
{
    const LRESULT iSelected = SendMessageW(hList, CB_GETCURSEL, 0, 0);
    const LRESULT iLength =
        iSelected >= 0 ? SendMessageW(hList, CB_GETLBTEXTLEN, static_cast<WPARAM>(iSelected), 0) : 0;
    if (iLength <= 0)
    {
        return {};
    }
    std::wstring sText(static_cast<std::size_t>(iLength) + 1, L'\0');
    SendMessageW(hList, CB_GETLBTEXT, static_cast<WPARAM>(iSelected), reinterpret_cast<LPARAM>(sText.data()));
    sText.resize(static_cast<std::size_t>(iLength));
    return sText;
}

// A triangle of whole rows: sharp at any size, without pen or polygon edges.
void DrawArrow(HDC hDc, const RECT& rcClient, COLORREF cr)
{
    const int iMiddle = rcClient.right - c_iArrowRight;
    const int iTop = (rcClient.top + rcClient.bottom - c_iArrowHalf) / 2;
    SetDCBrushColor(hDc, cr);
    for (int i = 0; i < c_iArrowHalf; ++i)
    {
        const RECT rcRow{iMiddle - c_iArrowHalf + i, iTop + i, iMiddle + c_iArrowHalf - i, iTop + i + 1};
        FillRect(hDc, &rcRow, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
    }
}
} // namespace

CPanelList::~CPanelList()
{
    DestroySubclassedWindow<CPanelList>(m_hWnd);
}

bool CPanelList::Create(short iId)
{
    m_hWnd = CreateWindowExW(0, WC_COMBOBOXW, nullptr,
                             WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST | CBS_HASSTRINGS, 0, 0,
                             0, c_iDroppedHeight, m_host.Host_GetWindow(),
                             reinterpret_cast<HMENU>(static_cast<INT_PTR>(iId)), m_host.Host_GetInstance(), nullptr);
    if (m_hWnd == nullptr)
    {
        return false;
    }
    ShowCreateWindow(GetDebugLog(), this, L"CPanelList", L"m_hWnd", m_hWnd, nullptr);
    SendMessageW(m_hWnd, WM_SETFONT, reinterpret_cast<WPARAM>(m_host.Host_GetFont(false)), FALSE);
    return SubclassWindow_Object(m_hWnd, this);
}

// The control adds a border to the height of its field. The border depends on the theme, and the control may report
// another height of the field than it was given. So the result is measured, and the field corrected by the difference.
void CPanelList::SetClosedHeight(int iHeight) const
{
    constexpr int c_iAttempts = 3;
    int iField = static_cast<int>(SendMessageW(m_hWnd, CB_GETITEMHEIGHT, c_wClosedField, 0));
    for (int i = 0; i < c_iAttempts; ++i)
    {
        RECT rc{};
        GetWindowRect(m_hWnd, &rc);
        iField += iHeight - GetRectHeight(rc);
        if (GetRectHeight(rc) == iHeight || iField <= 0)
        {
            return;
        }
        SendMessageW(m_hWnd, CB_SETITEMHEIGHT, c_wClosedField, iField);
    }
}

bool CPanelList::IsDropped() const
{
    return SendMessageW(m_hWnd, CB_GETDROPPEDSTATE, 0, 0) != FALSE;
}

std::optional<LRESULT> CPanelList::HandleMessage(UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    static constexpr CMessageEntry<CPanelList> c_table[] = {
        {WM_ERASEBKGND, &CPanelList::On_EraseBackground},
        {WM_PAINT, &CPanelList::On_Paint},
        {WM_PRINTCLIENT, &CPanelList::On_PrintClient},
        {WM_GETOBJECT, &CPanelList::On_GetObject},
        {WM_GETDLGCODE, &CPanelList::On_GetDlgCode},
        {WM_KEYDOWN, &CPanelList::On_KeyDown},
        {WM_KEYUP, &CPanelList::On_KeyUp},
        {WM_MOUSEMOVE, &CPanelList::On_MouseMove},
        {WM_MOUSELEAVE, &CPanelList::On_MouseLeave},
        {WM_MOUSEWHEEL, &CPanelList::On_MouseWheel},
        {WM_SETFOCUS, &CPanelList::On_SetFocus},
        {WM_KILLFOCUS, &CPanelList::On_KillFocus},
        {WM_ENABLE, &CPanelList::On_Enable},
        {CB_SETCURSEL, &CPanelList::On_SetSelection},
    };
    return HandleMessage_Table(*this, c_table, uMessage, wParam, lParam);
}

// Lets the control answer. Its content may have changed afterwards, so it is redrawn.
LRESULT CPanelList::AnswerAndRedraw(UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    const LRESULT result = DefSubclassProc(m_hWnd, uMessage, wParam, lParam);
    InvalidateRect(m_hWnd, nullptr, FALSE);
    return result;
}

std::optional<LRESULT> CPanelList::On_EraseBackground(WPARAM, LPARAM)
{
    return 1;
}

std::optional<LRESULT> CPanelList::On_Paint(WPARAM, LPARAM)
{
    PaintClient(m_hWnd, [this](HDC hDc, const RECT& rcClient) { Draw(hDc, rcClient); });
    return 0;
}

std::optional<LRESULT> CPanelList::On_PrintClient(WPARAM wParam, LPARAM)
{
    PrintClient(m_hWnd, wParam, [this](HDC hDc, const RECT& rcClient) { Draw(hDc, rcClient); });
    return 0;
}

std::optional<LRESULT> CPanelList::On_MouseMove(WPARAM, LPARAM)
{
    SetHot(true);
    return std::nullopt;
}

std::optional<LRESULT> CPanelList::On_MouseLeave(WPARAM, LPARAM)
{
    SetHot(false);
    return std::nullopt;
}

// The wheel over a closed list must not change the selection: it scrolls the panel.
std::optional<LRESULT> CPanelList::On_MouseWheel(WPARAM wParam, LPARAM)
{
    if (IsDropped())
    {
        return std::nullopt;
    }
    m_host.Host_ScrollByWheel(static_cast<short>(HIWORD(wParam)));
    return 0;
}

std::optional<LRESULT> CPanelList::On_SetFocus(WPARAM wParam, LPARAM lParam)
{
    const LRESULT result = AnswerAndRedraw(WM_SETFOCUS, wParam, lParam);
    m_host.Host_RowFocused(m_iIndex, true);
    return result;
}

std::optional<LRESULT> CPanelList::On_KillFocus(WPARAM wParam, LPARAM lParam)
{
    const LRESULT result = AnswerAndRedraw(WM_KILLFOCUS, wParam, lParam);
    m_host.Host_RowFocused(m_iIndex, false);
    return result;
}

std::optional<LRESULT> CPanelList::On_Enable(WPARAM wParam, LPARAM lParam)
{
    return AnswerAndRedraw(WM_ENABLE, wParam, lParam);
}

std::optional<LRESULT> CPanelList::On_SetSelection(WPARAM wParam, LPARAM lParam)
{
    return AnswerAndRedraw(CB_SETCURSEL, wParam, lParam);
}

// While the list is open it keeps the main-window keys for itself. It also keeps the release of the Escape that closed
// it.
std::optional<LRESULT> CPanelList::On_GetDlgCode(WPARAM, LPARAM lParam)
{
    const auto* const pMsg = reinterpret_cast<const MSG*>(lParam);
    if (pMsg == nullptr || pMsg->message != WM_KEYUP)
    {
        return std::nullopt;
    }
    const bool bOwnKey = IsDropped() || (pMsg->wParam == VK_ESCAPE && m_bEscapeUsed);
    return bOwnKey ? std::optional<LRESULT>(DLGC_WANTMESSAGE) : std::nullopt;
}

std::optional<LRESULT> CPanelList::On_KeyDown(WPARAM wParam, LPARAM lParam)
{
    if (wParam == VK_ESCAPE && (lParam & c_iRepeated) == 0)
    {
        m_bEscapeUsed = IsDropped();
    }
    return std::nullopt;
}

// F11 closes an open list before the main window gets the key.
std::optional<LRESULT> CPanelList::On_KeyUp(WPARAM wParam, LPARAM lParam)
{
    if (wParam == VK_ESCAPE)
    {
        m_bEscapeUsed = false;
    }
    if (wParam != VK_F11 || !IsDropped())
    {
        return std::nullopt;
    }
    SendMessageW(m_hWnd, CB_SHOWDROPDOWN, FALSE, 0);
    SendMessageW(GetAncestor(m_hWnd, GA_ROOT), WM_KEYUP, wParam, lParam);
    return 0;
}

void CPanelList::SetOwnAccessibleName(const CWString& sName, const CWString& sDescription)
{
    m_sAccessibleName = sName;
    m_sAccessibleDescription = sDescription;
}

std::optional<LRESULT> CPanelList::On_GetObject(WPARAM wParam, LPARAM lParam)
{
    if (m_sAccessibleName.IsEmpty() || static_cast<DWORD>(lParam) != static_cast<DWORD>(OBJID_CLIENT))
    {
        return std::nullopt;
    }
    return ListAccessible_Answer(m_hWnd, wParam, m_sAccessibleName, m_sAccessibleDescription);
}

void CPanelList::SetHot(bool bHot)
{
    if (m_bHot == bHot)
    {
        return;
    }
    m_bHot = bHot;
    InvalidateRect(m_hWnd, nullptr, FALSE);
    if (!bHot)
    {
        return;
    }
    TRACKMOUSEEVENT track{};
    track.cbSize = sizeof(track);
    track.dwFlags = TME_LEAVE;
    track.hwndTrack = m_hWnd;
    TrackMouseEvent(&track);
}

void CPanelList::Draw(HDC hDc, const RECT& rcClient)
{
    m_host.Host_DrawBehind(hDc, m_hWnd);
    CEntryLook look;
    look.bFocus = GetFocus() == m_hWnd;
    look.bEnabled = IsWindowEnabled(m_hWnd) != FALSE;
    look.bHot = m_bHot;
    DrawEntryFrame(hDc, rcClient, look);
    DrawArrow(hDc, rcClient, GetEntryTextColour(look));

    RECT rcText{rcClient.left + c_iTextInset, rcClient.top, rcClient.right - c_iArrowRight - c_iArrowHalf - 2,
                rcClient.bottom};
    const std::wstring sText = GetSelectedText(m_hWnd);
    const CSelectObject font(hDc, m_host.Host_GetFont(false));
    const int iOldMode = SetBkMode(hDc, TRANSPARENT);
    SetTextColor(hDc, GetEntryTextColour(look));
    DrawTextW(hDc, sText.c_str(), static_cast<int>(sText.size()), &rcText,
              DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
    SetBkMode(hDc, iOldMode);
}
