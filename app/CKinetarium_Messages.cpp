#include "app/CKinetarium.h"
#include "classes/core/CRect.h"
#include "classes/windows/system/RectHelpers.h"
#include "diagnostics/Guard.h"

#include <utility>
#include <windowsx.h>

// The table of messages, and the handlers that have no file of their own. Handlers change the simulation only through
// StartSimulation and StopSimulation.

namespace
{
// The second press of a double click counts as a click too.
constexpr UINT c_uButtonDoubleClicked = WM_LBUTTONDBLCLK;

constexpr UINT c_uDeferredFullScreen = WM_APP + 1; // wParam: EnumFullScreenRequest
} // namespace

LRESULT CKinetarium::WndProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    using Row = CMessageEntry<CKinetarium>;
    static constexpr Row c_Messages[] = {
        {WM_DESTROY, &CKinetarium::On_Destroy},
        {WM_SIZE, &CKinetarium::On_Size},
        {WM_ACTIVATE, &CKinetarium::On_Activate},
        {WM_SETFOCUS, &CKinetarium::On_SetFocus},
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
        {c_uDeferredFullScreen, &CKinetarium::On_DeferredFullScreen},
    };
    return Guarded({m_pDebugLog, __TIMESTAMP__}, LRESULT{0}, [&] {
        return DispatchMessage_Table<CKinetarium>(*this, c_Messages, hWnd, uMessage, wParam, lParam);
    });
}

std::optional<LRESULT> CKinetarium::On_Size(WPARAM, LPARAM)
{
    SetControlPositions(-1, -1);
    OnEraseBackground();
    return 0;
}

std::optional<LRESULT> CKinetarium::On_Activate(WPARAM wParam, LPARAM)
{
    if (LOWORD(wParam) == WA_INACTIVE)
    {
        const HWND hFocus = GetFocus();
        m_hKeptFocus = IsChild(m_hWnd, hFocus) ? hFocus : nullptr;
    }
    return std::nullopt;
}

// The system gives the focus of a window that becomes active to the window itself.
std::optional<LRESULT> CKinetarium::On_SetFocus(WPARAM, LPARAM)
{
    const HWND hKept = std::exchange(m_hKeptFocus, nullptr);
    if (IsChild(m_hWnd, hKept) && IsWindowVisible(hKept) && IsWindowEnabled(hKept))
    {
        SetFocus(hKept);
    }
    return 0;
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
        // The button is disabled during a stop, but a click that began before it can still arrive: ignore it.
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

std::optional<LRESULT> CKinetarium::On_Command(WPARAM wParam, LPARAM lParam)
{
    const wchar_t* const sListKey = GetSettingRow(EnumSetting::ColourMode).sPanelKey;
    const HWND hList = m_pDataCtrlGroup != nullptr ? m_pDataCtrlGroup->GetCtrlHandle(GetText(sListKey), 0) : nullptr;
    if (hList == nullptr || reinterpret_cast<HWND>(lParam) != hList)
    {
        return 0;
    }
    switch (HIWORD(wParam))
    {
    case CBN_DROPDOWN:
        m_OpenedMode = Panel_GetSelection(GetSettingRow(EnumSetting::ColourMode));
        break;
    case CBN_SELENDOK:
        m_OpenedMode.reset();
        On_ColourModeChosen();
        break;
    case CBN_SELENDCANCEL:
        On_ColourModeCancelled();
        break;
    default:
        break;
    }
    return 0;
}

// The system leaves the item in the list that the keys have reached.
void CKinetarium::On_ColourModeCancelled()
{
    const short iList = Panel_GetIndex(GetSettingRow(EnumSetting::ColourMode));
    if (m_OpenedMode && iList >= 0)
    {
        SendMessage_Show(m_pDataCtrlGroup->GetCtrlTabHandle(iList), CB_SETCURSEL, static_cast<WPARAM>(*m_OpenedMode),
                         0);
    }
    m_OpenedMode.reset();
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

    // In full screen the new world has the size of the screen, and nothing of it is scrolled away.
    const CPoint<int> scrolledAway = m_bFullscreen ? CPoint<int>{} : GetScrolledAway(m_pWorldView->GetWorldRect());
    const CPoint<int> start{point.x - rcView.left + scrolledAway.x, point.y - rcView.top + scrolledAway.y};
    {
        const CChangeOfWorld change(*this);
        StopSimulation();
        OperateMessagePump(nullptr);
    }
    StartSimulation(&start);
    return 0;
}

void CKinetarium::PostDeferredRequests()
{
    const CStopGate::CRequests requests = m_StopGate.TakeRequests(m_bFullscreen);
    if (requests.close)
    {
        PostMessageW(m_hWnd, WM_CLOSE, 0, 0);
    }
    if (requests.fullScreen != EnumFullScreenRequest::None)
    {
        PostMessageW(m_hWnd, c_uDeferredFullScreen, static_cast<WPARAM>(requests.fullScreen), 0);
    }
    if (requests.click)
    {
        PostMessageW(m_hWnd, WM_LBUTTONUP, 0, MAKELPARAM(requests.click->x, requests.click->y));
    }
}
