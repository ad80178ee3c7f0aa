#pragma once

#include <windows.h>

#include "classes/core/CWString.h"

// One tool tip window that follows the pointer from control to control. It is made at the first use.
class CWndToolTip
{
public:
    // uDelayMs: how long the pointer must rest, in milliseconds (0: as long as the system's tool tips want).
    // hFont: null for the system's tool tip font. The registry root is for callers that keep their settings there; it
    // is unused.
    CWndToolTip(unsigned uDelayMs, HFONT hFont, HKEY hRegistryRoot);
    ~CWndToolTip();
    CWndToolTip(const CWndToolTip&) = delete;
    CWndToolTip& operator=(const CWndToolTip&) = delete;

    // Makes this text the tip of hControl, and removes the tip of any other control. An empty text or a null control
    // only removes the tip. hMain owns the tip window. Line breaks are kept, long lines are wrapped.
    void ShowToolTip(const CWString& sText, HWND hMain, HWND hControl);

    HWND GetWindowHandle() const { return m_hWnd; }
    HWND GetControl() const { return m_hControl; }
    const CWString& GetText() const { return m_sText; }

private:
    bool EnsureWindow(HWND hMain);
    void RemoveTool();

    unsigned m_uDelayMs;
    HFONT m_hFont;
    HWND m_hWnd = nullptr;
    HWND m_hMain = nullptr;
    HWND m_hControl = nullptr;
    CWString m_sText;
};
