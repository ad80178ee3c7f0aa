#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "classes/core/CWString.h"
#include "classes/windows/panel/IPanelHost.h"

// The look of a label.
struct CLabelLook
{
    COLORREF crText = 0;
    COLORREF crShadow = 0;
    bool bTransparent = true; // over the backdrop, with a shadow; otherwise on a ground of the second colour
    bool bHeading = false;    // bold, with a rule to the right edge
};

// A row's label: a static control, so that screen readers find it before its control, drawn over the backdrop. A click
// on it gives the focus to its control.
class CPanelLabel
{
public:
    explicit CPanelLabel(IPanelHost& host) : m_host(host) {}
    ~CPanelLabel();
    CPanelLabel(const CPanelLabel&) = delete;
    CPanelLabel& operator=(const CPanelLabel&) = delete;

    bool Create(const CWString& sText, const CLabelLook& look);
    void SetPartner(HWND hControl) { m_hPartner = hControl; }
    void SetGreyed(bool bGreyed);
    HWND GetWindowHandle() const { return m_hWnd; }

    std::optional<LRESULT> HandleMessage(UINT uMessage, WPARAM wParam, LPARAM lParam);
    std::wstring* GetDebugLog() const { return m_host.Host_GetDebugLog(); }
    void OnWindowGone() { m_hWnd = nullptr; }

private:
    void Draw(HDC hDc, const RECT& rcClient);
    void DrawRule(HDC hDc, const RECT& rcClient, int iTextRight) const;

    IPanelHost& m_host;
    HWND m_hWnd = nullptr;
    HWND m_hPartner = nullptr;
    CWString m_sText;
    CLabelLook m_look;
    bool m_bGreyed = false;
};
