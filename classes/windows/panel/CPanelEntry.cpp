#include "classes/windows/panel/CPanelEntry.h"

#include "classes/core/EntryText.h"
#include "classes/windows/system/ClipboardText.h"
#include "classes/windows/system/MessageTable.h"
#include "classes/windows/system/ShowCreateWindow.h"
#include "classes/windows/system/SubclassForward.h"

#include <limits>

namespace
{
// The character of Ctrl with a letter: the letter's place in the alphabet.
constexpr WPARAM c_wCtrlA = 0x01;
constexpr WPARAM c_wTab = 0x09;
constexpr WPARAM c_wEnter = 0x0D;
constexpr WPARAM c_wCtrlV = 0x16;
constexpr WPARAM c_wEscape = 0x1B;
constexpr WPARAM c_wFirstPrintable = 0x20;
} // namespace

CPanelEntry::~CPanelEntry()
{
    DestroySubclassedWindow<CPanelEntry>(m_hWnd);
}

bool CPanelEntry::Create(short iId, bool bDigitsOnly, unsigned short uSize)
{
    m_bDigitsOnly = bDigitsOnly;
    m_uSize = uSize;
    const DWORD uStyle = WS_CHILD | WS_VISIBLE | WS_TABSTOP | ES_AUTOHSCROLL | (bDigitsOnly ? ES_NUMBER : 0u);
    m_hWnd = CreateWindowExW(0, WC_EDITW, nullptr, uStyle, 0, 0, 0, 0, m_host.Host_GetWindow(),
                             reinterpret_cast<HMENU>(static_cast<INT_PTR>(iId)), m_host.Host_GetInstance(), nullptr);
    if (m_hWnd == nullptr)
    {
        return false;
    }
    ShowCreateWindow(GetDebugLog(), this, L"CPanelEntry", L"m_hWnd", m_hWnd, nullptr);
    SendMessageW(m_hWnd, WM_SETFONT, reinterpret_cast<WPARAM>(m_host.Host_GetFont(false)), FALSE);
    SendMessageW(m_hWnd, EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, 0);
    if (uSize != 0)
    {
        SendMessageW(m_hWnd, EM_SETLIMITTEXT, uSize, 0);
    }
    return SubclassWindow_Object(m_hWnd, this);
}

std::optional<LRESULT> CPanelEntry::HandleMessage(UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    static constexpr CMessageEntry<CPanelEntry> c_table[] = {
        {WM_CHAR, &CPanelEntry::On_Char},           {WM_PASTE, &CPanelEntry::On_Paste},
        {WM_KEYDOWN, &CPanelEntry::On_KeyDown},     {WM_SETFOCUS, &CPanelEntry::On_SetFocus},
        {WM_KILLFOCUS, &CPanelEntry::On_KillFocus}, {WM_MOUSEWHEEL, &CPanelEntry::On_MouseWheel},
    };
    return HandleMessage_Table(*this, c_table, uMessage, wParam, lParam);
}

// The control handles control characters (copy, cut, undo, delete backwards) itself, but Enter, Escape and Tab would
// only make it beep.
std::optional<LRESULT> CPanelEntry::On_Char(WPARAM wParam, LPARAM)
{
    if (wParam == c_wEnter || wParam == c_wEscape || wParam == c_wTab)
    {
        return 0;
    }
    if (wParam == c_wCtrlA)
    {
        SendMessageW(m_hWnd, EM_SETSEL, 0, -1);
        return 0;
    }
    if (wParam == c_wCtrlV)
    {
        SendMessageW(m_hWnd, WM_PASTE, 0, 0);
        return 0;
    }
    if (wParam >= c_wFirstPrintable && !EntryTakes(static_cast<wchar_t>(wParam), m_bDigitsOnly))
    {
        return 0;
    }
    return std::nullopt;
}

// The older key for pasting must not bypass the filter either.
std::optional<LRESULT> CPanelEntry::On_KeyDown(WPARAM wParam, LPARAM)
{
    if (wParam != VK_INSERT || GetKeyState(VK_SHIFT) >= 0 || GetKeyState(VK_CONTROL) < 0)
    {
        return std::nullopt;
    }
    SendMessageW(m_hWnd, WM_PASTE, 0, 0);
    return 0;
}

std::optional<LRESULT> CPanelEntry::On_Paste(WPARAM, LPARAM)
{
    Paste();
    return 0;
}

std::optional<LRESULT> CPanelEntry::On_SetFocus(WPARAM wParam, LPARAM lParam)
{
    const LRESULT result = DefSubclassProc(m_hWnd, WM_SETFOCUS, wParam, lParam);
    m_host.Host_RowFocused(m_iIndex, true);
    return result;
}

std::optional<LRESULT> CPanelEntry::On_KillFocus(WPARAM wParam, LPARAM lParam)
{
    const LRESULT result = DefSubclassProc(m_hWnd, WM_KILLFOCUS, wParam, lParam);
    m_host.Host_RowFocused(m_iIndex, false);
    return result;
}

std::optional<LRESULT> CPanelEntry::On_MouseWheel(WPARAM wParam, LPARAM)
{
    if (m_host.Host_ScrollByWheel(static_cast<short>(HIWORD(wParam))))
    {
        return 0;
    }
    return std::nullopt;
}

// The largest number of characters that may replace the selection.
std::size_t CPanelEntry::GetRoom() const
{
    if (m_uSize == 0)
    {
        return std::numeric_limits<std::size_t>::max();
    }
    DWORD uStart = 0;
    DWORD uEnd = 0;
    SendMessageW(m_hWnd, EM_GETSEL, reinterpret_cast<WPARAM>(&uStart), reinterpret_cast<LPARAM>(&uEnd));
    const std::size_t uKept = static_cast<std::size_t>(GetWindowTextLengthW(m_hWnd)) - (uEnd - uStart);
    return uKept >= m_uSize ? 0 : m_uSize - uKept;
}

// If no character of the clipboard fits, the selection stays. Undo reverts only the paste, not the typing before it.
void CPanelEntry::Paste() const
{
    const std::wstring sText = FilterPastedText(ReadClipboardText(m_hWnd), m_bDigitsOnly, GetRoom());
    if (sText.empty())
    {
        return;
    }
    SendMessageW(m_hWnd, EM_EMPTYUNDOBUFFER, 0, 0);
    SendMessageW(m_hWnd, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(sText.c_str()));
}
