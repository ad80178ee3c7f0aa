#pragma once

#include <windows.h>

#include <memory>
#include <optional>

#include "classes/windows/button/CWndButton.h"
#include "classes/windows/panel/CDataCtrlGroup.h"
#include "classes/windows/window/CWndCommon.h"

// A main window with a panel of settings, a button and a status bar.
class CSampleWindow : public CWndCommon
{
public:
    // Makes and shows the window; false if the system refuses a part of it.
    bool Create(HINSTANCE hInstance);
    // Handles messages until the window is closed.
    void Run();

    void SetControlPositions(int cx, int cy) override;
    void UpdateStatusBar(HWND hControl, const POINT& pt) override;
    LRESULT WndProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam);

private:
    std::optional<LRESULT> On_Size(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_EraseBackground(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_Notify(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_KeyUp(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> On_Destroy(WPARAM wParam, LPARAM lParam);

    CWString GetText(const wchar_t* sKey) const { return GetStringResource().Get(sKey, true); }
    bool CreateMainWindow();
    bool CreateChildren();
    void AddRows();
    void Brew();

    std::unique_ptr<CDataCtrlGroup> m_pPanel;
    CWndButton m_Button;
};
