#include "app/CKinetarium.h"
#include "app/MonitorFitting.h"
#include "classes/core/OutputDebugMessage.h"
#include "classes/windows/system/CDisplayMonitors.h"
#include "classes/windows/system/Handles.h"
#include "classes/windows/system/RectHelpers.h"
#include "diagnostics/Guard.h"
#include "settings/SettingsFile.h"

#include <commctrl.h>

// Where things stand in the window, where the window stands on the screen, and what shows between its parts.

namespace
{
constexpr int c_iDeferredPositions = 5;

// Moving child windows makes them send messages back, which ask for a layout again.
bool s_bLayoutInProgress = false;

class CLayoutScope
{
public:
    CLayoutScope() { s_bLayoutInProgress = true; }
    ~CLayoutScope() { s_bLayoutInProgress = false; }
    CLayoutScope(const CLayoutScope&) = delete;
    CLayoutScope& operator=(const CLayoutScope&) = delete;
};

// Null ends the batch: the system has freed it by then.
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
        const CLayoutScope inProgress;

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

void CKinetarium::OnEraseBackground()
{
    Traced({m_pDebugLog, __TIMESTAMP__}, [&] {
        RECT rcClient{};
        if (!m_bInitialised || !GetClientRect(m_hWnd, &rcClient))
        {
            return;
        }
        if (GetRectWidth(rcClient) != GetRectWidth(m_rcLastClient) ||
            GetRectHeight(rcClient) != GetRectHeight(m_rcLastClient))
        {
            SetControlPositions(rcClient.right, rcClient.bottom);
            m_rcLastClient = rcClient;
            GetBackdrop()->SetDrawingRect(&rcClient);
        }
        PaintBackground(rcClient);
    });
}

// The frame is composed off-screen and copied in one piece, so that no half-drawn background ever shows. Child windows
// are clipped out of the copy.
void CKinetarium::PaintBackground(const RECT& rcClient)
{
    const CWindowDc windowDc(m_hWnd);
    if (!windowDc)
    {
        return;
    }
    const CMemoryDc memoryDc(windowDc.Get());
    if (!memoryDc)
    {
        return;
    }
    const CBitmapHandle bitmap(CreateCompatibleBitmap(windowDc.Get(), rcClient.right, rcClient.bottom));
    if (!bitmap)
    {
        return;
    }
    const CSelectObject selected(memoryDc.Get(), bitmap.Get());

    CPicture& backdrop = *GetBackdrop();
    switch (GetDrawMode())
    {
    case EnumPicDrawMode::Tiled:
        backdrop.DrawTiled(memoryDc.Get(), false);
        break;
    case EnumPicDrawMode::Stretched:
        backdrop.DrawStretched(memoryDc.Get(), false);
        break;
    case EnumPicDrawMode::Fitted:
        backdrop.DrawFitted(memoryDc.Get(), true, false);
        break;
    case EnumPicDrawMode::Plain:
        backdrop.Draw(memoryDc.Get(), true, false);
        break;
    }
    if (!m_bFullscreen)
    {
        m_VersionText.Draw(memoryDc.Get());
    }
    BitBlt(windowDc.Get(), 0, 0, rcClient.right, rcClient.bottom, memoryDc.Get(), 0, 0, SRCCOPY);
}
