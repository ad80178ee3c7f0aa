#include "tests/windows/sequences/MeasureScreen.h"

#include "classes/windows/system/RectHelpers.h"

#include <windows.h>

namespace
{
CRect GetWindowPlace(HWND hWnd)
{
    RECT rc{};
    GetWindowRect(hWnd, &rc);
    return ToRect(rc);
}

CSize<int> GetClientSize(HWND hWnd)
{
    RECT rc{};
    GetClientRect(hWnd, &rc);
    return {rc.right, rc.bottom};
}
} // namespace

CScreenMeasures MeasureScreen()
{
    constexpr int c_iLength = 500;
    const HWND hWnd = CreateWindowW(L"STATIC", L"", WS_OVERLAPPEDWINDOW, 0, 0, c_iLength, c_iLength, nullptr, nullptr,
                                    nullptr, nullptr);
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(hWnd, MONITOR_DEFAULTTOPRIMARY), &monitor);
    CScreenMeasures screen;
    screen.monitor = ToRect(monitor.rcMonitor);
    ShowWindow(hWnd, SW_SHOWNORMAL);
    const CSize<int> client = GetClientSize(hWnd);
    screen.frame = {c_iLength - client.cx, c_iLength - client.cy};
    ShowWindow(hWnd, SW_SHOWMAXIMIZED);
    screen.maximised = GetWindowPlace(hWnd);
    screen.maximisedClient = GetClientSize(hWnd);
    screen.bars = {GetSystemMetrics(SM_CXVSCROLL), GetSystemMetrics(SM_CYHSCROLL)};
    DestroyWindow(hWnd);
    return screen;
}
