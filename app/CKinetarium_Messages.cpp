#include "app/CKinetarium.h"
#include "classes/core/CRect.h"
#include "classes/core/OutputDebugMessage.h"
#include "classes/windows/system/RectHelpers.h"
#include "diagnostics/Guard.h"
#include "diagnostics/PruneDebugLog.h"
#include "settings/SettingsFile.h"

#include <cstdint>
#include <mutex>
#include <windowsx.h>

// What the main window does with each message. The handlers read the state and call the operations; none of them
// touches the simulation but through StartSimulation and StopSimulation.

namespace
{
// A second press in quick succession is a click as well.
constexpr UINT c_uButtonDoubleClicked = WM_LBUTTONDBLCLK;

constexpr UINT_PTR c_uClockTimer = 1;
constexpr UINT_PTR c_uPruneTimer = 2;

constexpr WPARAM c_uSystemCommandBits = 0xFFF0; // the system uses the low four itself

constexpr UINT c_uDeferredToggle = WM_APP + 1;
} // namespace

LRESULT CKinetarium::WndProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    using Row = CMessageEntry<CKinetarium>;
    static constexpr Row c_Messages[] = {
        {WM_DESTROY, &CKinetarium::On_Destroy},
        {WM_SIZE, &CKinetarium::On_Size},
        {WM_CLOSE, &CKinetarium::On_Close},
        {WM_ENDSESSION, &CKinetarium::On_EndSession},
        {WM_ERASEBKGND, &CKinetarium::On_EraseBackground},
        {WM_SETCURSOR, &CKinetarium::On_SetCursor},
        {WM_GETMINMAXINFO, &CKinetarium::On_GetMinMaxInfo},
        {WM_NOTIFY, &CKinetarium::On_Notify},
        {WM_KEYUP, &CKinetarium::On_KeyUp},
        {WM_COMMAND, &CKinetarium::On_Command},
        {WM_SYSCOMMAND, &CKinetarium::On_SysCommand},
        {WM_TIMER, &CKinetarium::On_Timer},
        {WM_LBUTTONUP, &CKinetarium::On_LeftButtonUp},
        {WM_RBUTTONUP, &CKinetarium::On_RightButtonUp},
        {c_uDeferredToggle, &CKinetarium::On_DeferredToggle},
    };
    return Guarded({m_pDebugLog, __TIMESTAMP__}, LRESULT{0}, [&] {
        return DispatchMessage_Table<CKinetarium>(*this, c_Messages, hWnd, uMessage, wParam, lParam);
    });
}

std::optional<LRESULT> CKinetarium::On_Destroy(WPARAM, LPARAM)
{
    m_bInitialised = false;
    m_bClosed = true;
    PostQuitMessage(0);
    return 0;
}

std::optional<LRESULT> CKinetarium::On_Size(WPARAM, LPARAM)
{
    SetControlPositions(-1, -1);
    OnEraseBackground();
    return 0;
}

std::optional<LRESULT> CKinetarium::On_Close(WPARAM, LPARAM)
{
    if (m_StopGate.Defer_Close())
    {
        return 0;
    }
    Settings_Save();
    // The rectangle to remember is that of the window as it stands when it is neither minimised nor maximised.
    ShowWindow(m_hWnd, SW_RESTORE);
    SaveWindowRectangle();
    StopSimulation();
    ShowWindow(m_hWnd, SW_HIDE);
    m_bInitialised = false;
    return std::nullopt; // the default destroys the window
}

// The session may end the process as soon as this returns, without a close: what the user has set must be safe by then.
std::optional<LRESULT> CKinetarium::On_EndSession(WPARAM wParam, LPARAM)
{
    if (wParam != 0)
    {
        Settings_Save();
        ShowWindow(m_hWnd, SW_RESTORE); // as at a close: a minimised window lies outside every screen
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

std::optional<LRESULT> CKinetarium::On_EraseBackground(WPARAM, LPARAM)
{
    OnEraseBackground();
    return 1;
}

std::optional<LRESULT> CKinetarium::On_SetCursor(WPARAM, LPARAM)
{
    if (!m_bBusy)
    {
        return std::nullopt;
    }
    SetCursor(m_hCursorWait);
    return 1;
}

std::optional<LRESULT> CKinetarium::On_GetMinMaxInfo(WPARAM, LPARAM lParam)
{
    auto* pInfo = reinterpret_cast<MINMAXINFO*>(lParam);
    pInfo->ptMinTrackSize = {Layout::c_iMinimumWindowLength, Layout::c_iMinimumWindowLength};
    return 0;
}

std::optional<LRESULT> CKinetarium::On_Notify(WPARAM, LPARAM lParam)
{
    const auto* pHeader = reinterpret_cast<const NMHDR*>(lParam);
    if (pHeader->code != c_uButtonClicked && pHeader->code != c_uButtonDoubleClicked)
    {
        return std::nullopt;
    }
    if (!On_ButtonClick(pHeader->hwndFrom))
    {
        return std::nullopt;
    }
    return 0;
}

bool CKinetarium::On_ButtonClick(HWND hButton)
{
    if (hButton == m_StartButton.GetWindowHandle())
    {
        // The button is disabled during a stop; a click that was under way already changes nothing.
        if (m_StopGate.IsStopping())
        {
            return true;
        }
        if (m_pSimulationThread != nullptr)
        {
            StopSimulation();
        }
        else
        {
            StartSimulation(nullptr);
            SetFocus(m_hWnd);
        }
        return true;
    }
    for (const CSettingRow& row : c_SettingRows)
    {
        const short iControl = Panel_GetIndex(row);
        CWndButton* pButton = m_pDataCtrlGroup->GetButton(iControl);
        if (pButton == nullptr || pButton->GetWindowHandle() != hButton)
        {
            continue;
        }
        const bool bChosen = SetColour(iControl);
        if (bChosen && row.eSetting == EnumSetting::BackgroundColour)
        {
            m_pWorldView->SetWorldBackgroundColour(pButton->GetBackground());
        }
        return true;
    }
    return false;
}

std::optional<LRESULT> CKinetarium::On_KeyUp(WPARAM wParam, LPARAM)
{
    if (wParam != VK_F11 && wParam != VK_ESCAPE)
    {
        return std::nullopt;
    }
    if (wParam == VK_F11 || m_bFullscreen)
    {
        ToggleFullscreen();
    }
    return 0;
}

std::optional<LRESULT> CKinetarium::On_Command(WPARAM wParam, LPARAM lParam)
{
    const wchar_t* const sListKey = GetSettingRow(EnumSetting::ColourMode).sPanelKey;
    const HWND hList = m_pDataCtrlGroup != nullptr ? m_pDataCtrlGroup->GetCtrlHandle(GetText(sListKey), 0) : nullptr;
    if (HIWORD(wParam) == CBN_SELENDOK && hList != nullptr && reinterpret_cast<HWND>(lParam) == hList)
    {
        On_ColourModeChosen();
    }
    return 0;
}

void CKinetarium::On_ColourModeChosen()
{
    const LRESULT iSelection = Panel_GetSelection(GetSettingRow(EnumSetting::ColourMode));
    const short iFactor = Panel_GetIndex(GetSettingRow(EnumSetting::Factor2));
    if (iFactor < 0)
    {
        return;
    }
    if (iSelection == static_cast<LRESULT>(EnumAtomColourMode::Fixed))
    {
        m_pDataCtrlGroup->ShowState_SetState(iFactor, EnumShowState::InUse);
    }
    else if (iSelection == static_cast<LRESULT>(EnumAtomColourMode::Speed))
    {
        m_pDataCtrlGroup->SetValue(iFactor, L"", 0);
        m_pDataCtrlGroup->ShowState_SetState(iFactor, EnumShowState::Greyed);
    }
}

std::optional<LRESULT> CKinetarium::On_SysCommand(WPARAM wParam, LPARAM)
{
    const WPARAM uCommand = wParam & c_uSystemCommandBits;
    if (uCommand != SC_MAXIMIZE && uCommand != SC_RESTORE)
    {
        return std::nullopt;
    }
    // Without this a minimised window could not be brought back from the task bar.
    if (uCommand == SC_RESTORE && IsIconic(m_hWnd))
    {
        return std::nullopt;
    }
    if ((uCommand == SC_MAXIMIZE) != m_bFullscreen)
    {
        ToggleFullscreen();
    }
    return 0;
}

std::optional<LRESULT> CKinetarium::On_Timer(WPARAM wParam, LPARAM)
{
    if (wParam == c_uClockTimer)
    {
        UpdateStatusBarClock(false, false);
        return 0;
    }
    if (wParam != c_uPruneTimer)
    {
        return std::nullopt;
    }
    if (m_pDebugLog != nullptr && IsDebugLogFull())
    {
        PruneDebugLog(static_cast<unsigned>(m_pDebugLog->capacity() / 2));
    }
    return 0;
}

// The worker may be writing to the log at this moment.
bool CKinetarium::IsDebugLogFull() const
{
    const std::lock_guard lock(DebugLog_GetMutex());
    return NeedsPruning(m_pDebugLog->length(), m_pDebugLog->capacity());
}

void CKinetarium::PruneDebugLog(unsigned uKeep)
{
    Traced({m_pDebugLog, __TIMESTAMP__}, [&] {
        if (m_pDebugLog != nullptr)
        {
            ::PruneDebugLog(*m_pDebugLog, uKeep);
        }
    });
}

std::optional<LRESULT> CKinetarium::On_LeftButtonUp(WPARAM, LPARAM lParam)
{
    const CPoint<int> point{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    RECT rcView{};
    GetClientRect(m_pWorldView->GetWindowHandle(), &rcView);
    MapWindowPoints(m_pWorldView->GetWindowHandle(), m_hWnd, reinterpret_cast<POINT*>(&rcView), 2);
    if (!ContainsInclusive(ToRect(rcView), point) || m_StopGate.Defer_Click(point))
    {
        return 0;
    }

    const CPoint<int> start{point.x - rcView.left, point.y - rcView.top};
    {
        const CChangeOfWorld change(*this);
        StopSimulation();
        OperateMessagePump(nullptr);
    }
    StartSimulation(&start);
    return 0;
}

std::optional<LRESULT> CKinetarium::On_RightButtonUp(WPARAM, LPARAM)
{
    ToggleFullscreen();
    return 0;
}

std::optional<LRESULT> CKinetarium::On_DeferredToggle(WPARAM, LPARAM)
{
    ToggleFullscreen();
    return 0;
}

void CKinetarium::PostDeferredRequests()
{
    const CStopGate::CRequests requests = m_StopGate.TakeRequests();
    if (requests.close)
    {
        PostMessageW(m_hWnd, WM_CLOSE, 0, 0);
    }
    if (requests.toggleFullScreen)
    {
        PostMessageW(m_hWnd, c_uDeferredToggle, 0, 0);
    }
    if (requests.click)
    {
        PostMessageW(m_hWnd, WM_LBUTTONUP, 0, MAKELPARAM(requests.click->x, requests.click->y));
    }
}
