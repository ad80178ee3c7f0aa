#include "app/CKinetarium.h"
#include "classes/windows/window/CWndToolTip.h"
#include "diagnostics/Guard.h"

#include <commctrl.h>
#include <uxtheme.h>

// The status bar, and the description of the control under the pointer in it and in the tooltip.

bool CKinetarium::InitializeWindow_StatusBar()
{
    m_hStatusBar = CreateWindowExW(0, STATUSCLASSNAMEW, L"", WS_CHILD | WS_VISIBLE, 0, 0, 0, 0, m_hWnd, nullptr,
                                   m_hInstance, nullptr);
    if (m_hStatusBar == nullptr)
    {
        return false;
    }
    SendMessageW(m_hStatusBar, WM_SETFONT, reinterpret_cast<WPARAM>(GetFont()), TRUE);
    // A themed status bar ignores the background colour.
    SetWindowTheme(m_hStatusBar, L" ", L" ");
    SendMessageW(m_hStatusBar, SB_SETBKCOLOR, 0, static_cast<LPARAM>(m_crBackground));
    return true;
}

void CKinetarium::UpdateStatusBar(HWND hControl, const POINT& /*point*/)
{
    Traced({m_pDebugLog, __TIMESTAMP__}, [&] {
        CWString sText;
        if (hControl == m_StartButton.GetWindowHandle())
        {
            sText = GetText(L"Start_stop_btn_desc");
        }
        else if (m_pDataCtrlGroup != nullptr)
        {
            const short iControl = m_pDataCtrlGroup->GetCtrlIndex(hControl);
            if (iControl >= 0)
            {
                sText = m_pDataCtrlGroup->GetDesc(iControl);
            }
        }
        SendMessageW(m_hStatusBar, SB_SETTEXTW, 0, reinterpret_cast<LPARAM>(sText.c_str()));
        if (m_pToolTip != nullptr)
        {
            m_pToolTip->ShowToolTip(sText, m_hWnd, hControl);
        }
    });
}
