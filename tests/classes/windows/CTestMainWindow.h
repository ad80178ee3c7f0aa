#pragma once

#include <windows.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "classes/windows/button/CWndButton.h"
#include "classes/windows/panel/CDataCtrlGroup.h"
#include "classes/windows/window/CWndCommon.h"

// A main window like the program's own: settings panel, button and status bar on the backdrop. It records the
// notifications that it gets.
class CTestMainWindow : public CWndCommon
{
public:
    struct CNotice
    {
        UINT uCode;
        HWND hFrom;
    };

    CTestMainWindow();
    ~CTestMainWindow() override;

    // Opens a window with a client area of the given size at the top left of the screen. False if anything failed.
    bool Create(int iWidth, int iHeight);
    void AddRows();
    void AddStatusBar();
    bool AddButton();
    // Dispatches the waiting messages several times, so that messages caused by them are dispatched too.
    void Pump();

    LRESULT WndProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam);
    void SetControlPositions(int cx, int cy) override;
    void UpdateStatusBar(HWND hControl, const POINT& pt) override;

    CDataCtrlGroup& GetPanel() { return *m_pPanel; }
    // The indices of the panel's rows in order.
    std::vector<short> GetRows() const;
    CWndButton& GetStartButton() { return m_Button; }
    CTabOrder& TabOrder() { return m_TabOrder; }
    HWND StatusBar() const { return m_hStatusBar; }
    void Clock(bool bLongDate, bool bSeconds) { UpdateStatusBarClock(bLongDate, bSeconds); }
    using CWndCommon::Initialize;

    std::vector<CNotice> m_notices;  // WM_NOTIFY of buttons
    std::vector<CNotice> m_commands; // WM_COMMAND of lists: the notification code
    std::vector<WPARAM> m_keysUp;
    std::vector<HWND> m_hovered;
    bool m_bThrowOnNotify = false;

private:
    std::unique_ptr<CDataCtrlGroup> m_pPanel;
    CWndButton m_Button;
};
