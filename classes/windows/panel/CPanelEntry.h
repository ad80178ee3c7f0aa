#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "classes/windows/panel/IPanelHost.h"

// A row's entry: the system's edit control, restricted to the characters and the length that the row accepts, for
// typing and for pasting. Values set by the program are not restricted.
class CPanelEntry
{
public:
    CPanelEntry(IPanelHost& host, short iIndex) : m_host(host), m_iIndex(iIndex) {}
    ~CPanelEntry();
    CPanelEntry(const CPanelEntry&) = delete;
    CPanelEntry& operator=(const CPanelEntry&) = delete;

    // uSize: the largest number of characters (0: no limit).
    bool Create(short iId, bool bDigitsOnly, unsigned short uSize);
    HWND GetWindowHandle() const { return m_hWnd; }

    std::optional<LRESULT> HandleMessage(UINT uMessage, WPARAM wParam, LPARAM lParam);
    std::wstring* GetDebugLog() const { return m_host.Host_GetDebugLog(); }
    void OnWindowGone() { m_hWnd = nullptr; }

private:
    std::optional<LRESULT> On_Char(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_Paste(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_KeyDown(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_SetFocus(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_KillFocus(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_MouseWheel(WPARAM wParam, LPARAM lParam);
    void Paste() const;
    std::size_t GetRoom() const;

    IPanelHost& m_host;
    short m_iIndex;
    HWND m_hWnd = nullptr;
    bool m_bDigitsOnly = false;
    unsigned short m_uSize = 0;
};
