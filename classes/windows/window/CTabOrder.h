#pragma once

#include <windows.h>

#include <string>
#include <vector>

// The order in which Tab walks through a window's controls.
class CTabOrder
{
public:
    // Appends a window; the name is for the debug log. A null window or one already in the order is ignored.
    void AddWindow(HWND hWnd, const wchar_t* sName);
    void RemoveWindow(HWND hWnd);
    void Clear();
    int GetCount() const { return static_cast<int>(m_stops.size()); }
    HWND GetWindow(int iIndex) const;

    // The stop after (or before) the given window, wrapping around; skips windows that are disabled, hidden or gone.
    // From a window that is no stop, forwards gives the first stop and backwards the last. Null if no stop can take the
    // focus.
    HWND FindNext(HWND hFrom, bool bBackwards) const;

    // Handles Tab and Shift+Tab (without Ctrl or Alt) for hRoot or a window inside it: moves the focus and returns
    // true, so that the message is not dispatched.
    bool HandleMessage(HWND hRoot, const MSG& msg) const;

private:
    struct CStop
    {
        HWND hWnd;
        std::wstring sName;
    };

    int FindStop(HWND hWnd) const;

    std::vector<CStop> m_stops;
};
