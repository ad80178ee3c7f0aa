#include "app/CKinetarium.h"
#include "app/MonitorFitting.h"
#include "classes/core/CFlagScope.h"
#include "classes/core/OutputDebugMessage.h"
#include "classes/windows/system/CDisplayMonitors.h"
#include "classes/windows/system/RectHelpers.h"
#include "diagnostics/Guard.h"
#include "settings/SettingsFile.h"

#include <commctrl.h>

// Places the parts in the window, and the window on the screen.

namespace
{
constexpr int c_iDeferredPositions = 5;

// Moved child windows send messages that request another layout. These requests are ignored.
bool s_bLayoutInProgress = false;

// Does nothing after a failure: then DeferWindowPos has returned null and the system has freed the batch.
void DeferPosition(HDWP& hPositions, HWND hWnd, const CRect& rectangle)
{
    if (hPositions != nullptr)
    {
        hPositions = DeferWindowPos(hPositions, hWnd, nullptr, rectangle.left, rectangle.top, rectangle.GetWidth(),
                                    rectangle.GetHeight(), SWP_NOZORDER | SWP_NOACTIVATE);
    }
}
} // namespace

void CKinetarium::SetControlPositions(int cx, int cy)
{
    Traced({m_pDebugLog, __TIMESTAMP__}, [&] {
        if (!m_bInitialised || s_bLayoutInProgress)
        {
            return;
        }
        const CFlagScope inProgress(s_bLayoutInProgress);

        CSize<int> client{cx, cy};
        if (cx == -1 || cy == -1)
        {
            RECT rcClient{};
            GetClientRect(m_hWnd, &rcClient);
            client = {rcClient.right, rcClient.bottom};
        }

        HDWP hPositions = BeginDeferWindowPos(c_iDeferredPositions);
        if (m_bFullscreen)
        {
            DeferPosition(hPositions, m_pWorldView->GetWindowHandle(), ComputeFullScreenView(client));
        }
        else
        {
            LayOut_Windowed(hPositions, client);
        }
        if (hPositions != nullptr)
        {
            EndDeferWindowPos(hPositions);
        }
    });
}

void CKinetarium::LayOut_Windowed(HDWP& hPositions, const CSize<int>& client)
{
    const CLayoutMeasures measures{m_byMargin, GetSystemMetrics(SM_CXVSCROLL), GetSystemMetrics(SM_CYHSCROLL)};
    const CWindowedLayout layout = ComputeWindowedLayout(client, m_WorldSize, measures);

    SendMessageW(m_hStatusBar, SB_SETPARTS, layout.statusPartRightEdges.size(),
                 reinterpret_cast<LPARAM>(layout.statusPartRightEdges.data()));
    DeferPosition(hPositions, m_hStatusBar, layout.statusBar);
    DeferPosition(hPositions, m_StartButton.GetWindowHandle(), layout.startButton);
    DeferPosition(hPositions, m_pDataCtrlGroup->GetWindowHandle(), layout.settingsPanel);
    DeferPosition(hPositions, m_pWorldView->GetWindowHandle(), layout.worldView);

    const RECT rcVersion = ToRECT(layout.versionText);
    m_VersionText.SetDrawingRect(&rcVersion);
}

bool CKinetarium::FitWindowOnMonitor(RECT* pRect)
{
    return Traced({m_pDebugLog, __TIMESTAMP__}, false, [&] {
        if (pRect == nullptr)
        {
            return false;
        }
        const auto& keys = SettingsFile::c_sWindowKeys;
        const CRect saved{Settings_ReadInteger(keys[0], 0), Settings_ReadInteger(keys[1], 0),
                          Settings_ReadInteger(keys[2], 0), Settings_ReadInteger(keys[3], 0)};

        CDisplayMonitors displays;
        std::vector<CMonitorArea> monitors;
        displays.GetDisplayMonitors(m_pDebugLog);
        for (const CDisplayMonitor& display : displays.GetList())
        {
            monitors.push_back({ToRect(display.rc), display.bMain});
        }

        const CMonitorFit fit =
            FitRectangleOnMonitors(saved, monitors, {GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)});
        OutputDebugMessage(m_pDebugLog, L"Best fitting monitor = %u\n", static_cast<unsigned>(fit.bestMonitor));
        if (fit.switchedToMain)
        {
            OutputDebugMessage(
                m_pDebugLog,
                L"The application window doesn't fit on the monitor. Switching to main display monitor %u.\n",
                static_cast<unsigned>(fit.chosenMonitor));
        }
        OutputDebugMessage(m_pDebugLog, L"Monitor %u  = (%i,%i) - (%i,%i)\nApp window = (%i,%i) - (%i,%i)\n",
                           static_cast<unsigned>(fit.chosenMonitor), fit.monitor.left, fit.monitor.top,
                           fit.monitor.right, fit.monitor.bottom, fit.window.left, fit.window.top, fit.window.right,
                           fit.window.bottom);
        *pRect = ToRECT(fit.window);
        return true;
    });
}
