#include "classes/windows/window/CTabOrder.h"

#include <algorithm>

namespace
{
bool CanTakeFocus(HWND hWnd)
{
    return IsWindow(hWnd) && IsWindowVisible(hWnd) && IsWindowEnabled(hWnd);
}

bool IsDown(int iKey)
{
    return GetKeyState(iKey) < 0;
}

// Tab into an entry selects its text, so that typing replaces it.
void FocusByKeyboard(HWND hWnd)
{
    SetFocus(hWnd);
    if ((SendMessageW(hWnd, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL) != 0)
    {
        SendMessageW(hWnd, EM_SETSEL, 0, -1);
    }
}
} // namespace

int CTabOrder::FindStop(HWND hWnd) const
{
    const auto found =
        std::find_if(m_stops.begin(), m_stops.end(), [hWnd](const CStop& stop) { return stop.hWnd == hWnd; });
    return found == m_stops.end() ? -1 : static_cast<int>(found - m_stops.begin());
}

void CTabOrder::AddWindow(HWND hWnd, const wchar_t* sName)
{
    if (hWnd == nullptr || FindStop(hWnd) >= 0)
    {
        return;
    }
    m_stops.push_back({hWnd, sName != nullptr ? sName : L""});
}

void CTabOrder::RemoveWindow(HWND hWnd)
{
    if (const int iStop = FindStop(hWnd); iStop >= 0)
    {
        m_stops.erase(m_stops.begin() + iStop);
    }
}

void CTabOrder::Clear()
{
    m_stops.clear();
}

HWND CTabOrder::GetWindow(int iIndex) const
{
    return iIndex >= 0 && iIndex < GetCount() ? m_stops[static_cast<std::size_t>(iIndex)].hWnd : nullptr;
}

HWND CTabOrder::FindNext(HWND hFrom, bool bBackwards) const
{
    const int iCount = GetCount();
    const int iFrom = FindStop(hFrom);
    const int iStep = bBackwards ? -1 : 1;
    // From a window that is no stop, the walk begins so that its first step reaches the first or the last stop.
    int iStop = iFrom >= 0 ? iFrom : bBackwards ? iCount : -1;
    for (int i = 0; i < iCount; ++i)
    {
        iStop = (iStop + iStep + iCount) % iCount;
        if (const HWND hStop = GetWindow(iStop); CanTakeFocus(hStop))
        {
            return hStop;
        }
    }
    return nullptr;
}

bool CTabOrder::HandleMessage(HWND hRoot, const MSG& msg) const
{
    if (msg.message != WM_KEYDOWN || msg.wParam != VK_TAB || m_stops.empty() || hRoot == nullptr)
    {
        return false;
    }
    if (msg.hwnd != hRoot && !IsChild(hRoot, msg.hwnd))
    {
        return false;
    }
    if (IsDown(VK_CONTROL) || IsDown(VK_MENU))
    {
        return false;
    }
    const HWND hNext = FindNext(GetFocus(), IsDown(VK_SHIFT));
    if (hNext != nullptr)
    {
        FocusByKeyboard(hNext);
    }
    return true;
}
