#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "classes/core/CWString.h"
#include "classes/windows/panel/IPanelHost.h"

// A row's drop-down list: the system's combo box without an entry field, with the looks of the panel's entries.
class CPanelList
{
public:
    CPanelList(IPanelHost& host, short iIndex) : m_host(host), m_iIndex(iIndex) {}
    ~CPanelList();
    CPanelList(const CPanelList&) = delete;
    CPanelList& operator=(const CPanelList&) = delete;

    bool Create(short iId);
    // Gives the closed list this height, in pixels.
    void SetClosedHeight(int iHeight) const;
    // Lets the list itself give screen readers its name, for systems that keep no names given to windows.
    void SetOwnAccessibleName(const CWString& sName, const CWString& sDescription);
    HWND GetWindowHandle() const { return m_hWnd; }

    std::optional<LRESULT> HandleMessage(UINT uMessage, WPARAM wParam, LPARAM lParam);
    std::wstring* GetDebugLog() const { return m_host.Host_GetDebugLog(); }
    void OnWindowGone() { m_hWnd = nullptr; }

private:
    bool IsDropped() const;
    std::optional<LRESULT> On_EraseBackground(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_Paint(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_PrintClient(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_GetObject(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_GetDlgCode(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_KeyDown(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_KeyUp(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_MouseMove(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_MouseLeave(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_MouseWheel(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_SetFocus(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_KillFocus(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_Enable(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_SetSelection(WPARAM wParam, LPARAM lParam);
    LRESULT AnswerAndRedraw(UINT uMessage, WPARAM wParam, LPARAM lParam);
    void SetHot(bool bHot);
    void Draw(HDC hDc, const RECT& rcClient);

    IPanelHost& m_host;
    short m_iIndex;
    HWND m_hWnd = nullptr;
    CWString m_sAccessibleName;
    CWString m_sAccessibleDescription;
    bool m_bHot = false;
    bool m_bEscapeUsed = false; // Escape has just closed the list: its release has no effect
};
