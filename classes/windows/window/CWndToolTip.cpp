#include "classes/windows/window/CWndToolTip.h"

#include <windows.h>

#include <commctrl.h>

namespace
{
// Wider tips are broken into lines: a tip should not cover half the width of the screen.
constexpr int c_iMaxWidth = 320;
} // namespace

CWndToolTip::CWndToolTip(unsigned uDelayMs, HFONT hFont, HKEY) : m_uDelayMs(uDelayMs), m_hFont(hFont) {}

CWndToolTip::~CWndToolTip()
{
    RemoveTool();
    if (IsWindow(m_hWnd)) // its owner may have destroyed it
    {
        DestroyWindow(m_hWnd);
    }
}

bool CWndToolTip::EnsureWindow(HWND hMain)
{
    if (IsWindow(m_hWnd))
    {
        return true;
    }
    m_hControl = nullptr;
    m_hWnd =
        CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP, CW_USEDEFAULT,
                        CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, hMain, nullptr, nullptr, nullptr);
    if (m_hWnd == nullptr)
    {
        return false;
    }
    m_hMain = hMain;
    SendMessageW(m_hWnd, TTM_SETMAXTIPWIDTH, 0, c_iMaxWidth);
    if (m_hFont != nullptr)
    {
        SendMessageW(m_hWnd, WM_SETFONT, reinterpret_cast<WPARAM>(m_hFont), FALSE);
    }
    if (m_uDelayMs != 0)
    {
        SendMessageW(m_hWnd, TTM_SETDELAYTIME, TTDT_INITIAL, static_cast<LPARAM>(m_uDelayMs));
    }
    return true;
}

void CWndToolTip::RemoveTool()
{
    if (m_hControl != nullptr && IsWindow(m_hWnd))
    {
        TTTOOLINFOW tool{};
        tool.cbSize = sizeof(tool);
        tool.hwnd = m_hMain;
        tool.uId = reinterpret_cast<UINT_PTR>(m_hControl);
        SendMessageW(m_hWnd, TTM_POP, 0, 0);
        SendMessageW(m_hWnd, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    }
    m_hControl = nullptr;
    m_sText.Clear();
}

void CWndToolTip::ShowToolTip(const CWString& sText, HWND hMain, HWND hControl)
{
    if (hControl != nullptr && hControl == m_hControl && sText == m_sText && IsWindow(m_hWnd))
    {
        return;
    }
    RemoveTool();
    if (sText.IsEmpty() || !IsWindow(hControl) || !EnsureWindow(hMain))
    {
        return;
    }
    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): the message takes a text that may be written to
    CWString sCopy = sText;
    TTTOOLINFOW tool{};
    tool.cbSize = sizeof(tool);
    // The tip watches the mouse messages of the control itself.
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = m_hMain;
    tool.uId = reinterpret_cast<UINT_PTR>(hControl);
    tool.lpszText = const_cast<wchar_t*>(sCopy.c_str());
    if (!SendMessageW(m_hWnd, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool)))
    {
        return;
    }
    m_hControl = hControl;
    m_sText = sCopy;
}
