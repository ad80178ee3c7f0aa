#include "app/CKinetarium.h"
#include "settings/SettingsFile.h"

#include <array>
#include <cstdint>

// The end of the window or of the session. Both save the settings and the window's rectangle first.

std::optional<LRESULT> CKinetarium::On_Close(WPARAM, LPARAM)
{
    if (m_StopGate.Defer_Close())
    {
        return 0;
    }
    Settings_Save();
    // The rectangle to save is the one of the restored window, neither minimised nor maximised.
    ShowWindow(m_hWnd, SW_RESTORE);
    SaveWindowRectangle();
    StopSimulation();
    ShowWindow(m_hWnd, SW_HIDE);
    m_bInitialised = false;
    return std::nullopt; // the default destroys the window
}

// The system may end the process as soon as this returns, without WM_CLOSE: the settings must be saved by then.
std::optional<LRESULT> CKinetarium::On_EndSession(WPARAM wParam, LPARAM)
{
    if (wParam != 0)
    {
        Settings_Save();
        ShowWindow(m_hWnd, SW_RESTORE); // a minimised window lies outside every screen
        SaveWindowRectangle();
        StopSimulation();
    }
    return std::nullopt;
}

void CKinetarium::SaveWindowRectangle()
{
    RECT rcWindow{};
    GetWindowRect(m_hWnd, &rcWindow);
    const std::array<LONG, 4> edges{rcWindow.left, rcWindow.top, rcWindow.right, rcWindow.bottom};
    for (std::size_t i = 0; i < edges.size(); ++i)
    {
        Settings_Write(SettingsFile::c_sWindowKeys[i], CWString(static_cast<std::int64_t>(edges[i])));
    }
}

std::optional<LRESULT> CKinetarium::On_Destroy(WPARAM, LPARAM)
{
    m_bInitialised = false;
    m_bClosed = true;
    PostQuitMessage(0);
    return 0;
}
