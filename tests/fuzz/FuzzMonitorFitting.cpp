#include "app/LayoutRules.h"
#include "app/MonitorFitting.h"
#include "tests/fuzz/CFuzzInput.h"
#include "tests/fuzz/FuzzTarget.h"

#include <algorithm>
#include <vector>

namespace
{

using namespace Layout;

constexpr int c_iCornerInset = 8;
constexpr int c_iMostMonitors = 12;

// Wide enough for every product of two coordinates.
using Wide = long double;

bool IsEmptyWide(const CRect& rc)
{
    return rc.right <= rc.left || rc.bottom <= rc.top;
}

Wide GetSharedArea(const CRect& a, const CRect& b)
{
    const Wide width = Wide{static_cast<Wide>(std::min(a.right, b.right))} - std::max(a.left, b.left);
    const Wide height = Wide{static_cast<Wide>(std::min(a.bottom, b.bottom))} - std::max(a.top, b.top);
    return width > 0 && height > 0 ? width * height : 0;
}

bool IsLargeEnough(const CRect& rc)
{
    return Wide{static_cast<Wide>(rc.right)} - rc.left >= c_iMinimumWindowLength &&
           Wide{static_cast<Wide>(rc.bottom)} - rc.top >= c_iMinimumWindowLength;
}

bool IsOn(const CRect& rc, Wide x, Wide y)
{
    return rc.left <= x && x < rc.right && rc.top <= y && y < rc.bottom;
}

bool ShowsItsCorners(const CRect& window, const CRect& monitor)
{
    return IsOn(monitor, static_cast<Wide>(window.left) + c_iCornerInset,
                static_cast<Wide>(window.top) + c_iCornerInset) &&
           IsOn(monitor, static_cast<Wide>(window.right) - c_iCornerInset,
                static_cast<Wide>(window.bottom) - c_iCornerInset);
}

CRect TakeRect(CFuzzInput& input)
{
    CRect rc;
    rc.left = input.TakeInt();
    rc.top = input.TakeInt();
    rc.right = input.TakeInt();
    rc.bottom = input.TakeInt();
    return rc;
}

// Empty rectangles are left out: every monitor of the system has an area.
std::vector<CMonitorArea> TakeMonitors(CFuzzInput& input)
{
    std::vector<CMonitorArea> monitors;
    while (!input.IsAtEnd() && monitors.size() < c_iMostMonitors)
    {
        const CRect rc = TakeRect(input);
        const bool bMain = input.TakeInt() > 0;
        if (!IsEmptyWide(rc))
        {
            monitors.push_back({rc, bMain});
        }
    }
    return monitors;
}

void CheckBestMonitor(const CRect& window, const std::vector<CMonitorArea>& monitors, std::size_t uBest)
{
    const Wide best = GetSharedArea(window, monitors[uBest].rectangle);
    for (std::size_t u = 0; u < monitors.size(); ++u)
    {
        const Wide area = GetSharedArea(window, monitors[u].rectangle);
        Require(u < uBest ? area < best : area <= best, "another monitor shows more of the window");
    }
}

std::size_t FindChosenMonitor(const std::vector<CMonitorArea>& monitors, const CMonitorFit& fit)
{
    for (std::size_t u = 0; u < monitors.size() && fit.switchedToMain; ++u)
    {
        if (monitors[u].isMain)
        {
            return u;
        }
    }
    return fit.bestMonitor;
}

// A window that was moved stands in its monitor's corner, at most as large as a new one, and never hangs over.
void CheckMovedWindow(const CRect& window, const CRect& monitor)
{
    Require(window.left == monitor.left && window.top == monitor.top, "a moved window is not in the corner");
    Require(window.right <= monitor.right && window.bottom <= monitor.bottom, "a moved window hangs over");
    const Wide width = static_cast<Wide>(window.right) - window.left;
    const Wide height = static_cast<Wide>(window.bottom) - window.top;
    Require(width == c_iDefaultWindowWidth || (width < c_iDefaultWindowWidth && window.right == monitor.right),
            "a moved window has another width");
    Require(height == c_iDefaultWindowHeight || (height < c_iDefaultWindowHeight && window.bottom == monitor.bottom),
            "a moved window has another height");
}

// The window that opens if none is saved.
CRect GetWindowToFit(const CRect& saved, const CSize<int>& screen)
{
    if (!IsEmptyWide(saved))
    {
        return saved;
    }
    const int left = (screen.cx - c_iDefaultWindowWidth) / 2;
    const int top = (screen.cy - c_iDefaultWindowHeight) / 2;
    return {left, top, left + c_iDefaultWindowWidth, top + c_iDefaultWindowHeight};
}

void CheckFit(const CRect& wanted, const std::vector<CMonitorArea>& monitors, const CMonitorFit& fit)
{
    Require(fit.bestMonitor < monitors.size() && fit.chosenMonitor < monitors.size(), "there is no such monitor");
    CheckBestMonitor(wanted, monitors, fit.bestMonitor);
    const bool bFits = GetSharedArea(wanted, monitors[fit.bestMonitor].rectangle) > 0 && IsLargeEnough(wanted);
    Require(fit.switchedToMain == !bFits, "fitting is judged otherwise");
    Require(fit.chosenMonitor == FindChosenMonitor(monitors, fit), "another monitor is chosen");
    Require(fit.monitor == monitors[fit.chosenMonitor].rectangle, "the monitor's rectangle is another one");
    if (ShowsItsCorners(wanted, fit.monitor))
    {
        Require(fit.window == wanted, "a window whose corners show is moved");
    }
    else
    {
        CheckMovedWindow(fit.window, fit.monitor);
    }
}

bool AreApart(const std::vector<CMonitorArea>& monitors)
{
    for (std::size_t u = 0; u < monitors.size(); ++u)
    {
        for (std::size_t v = 0; v < u; ++v)
        {
            if (GetSharedArea(monitors[u].rectangle, monitors[v].rectangle) > 0)
            {
                return false;
            }
        }
    }
    return true;
}

} // namespace

// Numbers: the saved rectangle, the screen's size, and of each monitor its rectangle and whether it is the main one.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t uCount)
{
    CFuzzInput input(pBytes, uCount);
    const CRect saved = TakeRect(input);
    constexpr int c_iMostPixels = 1 << 30;
    CSize<int> screen;
    screen.cx = input.TakeInt(0, c_iMostPixels);
    screen.cy = input.TakeInt(0, c_iMostPixels);
    std::vector<CMonitorArea> monitors = TakeMonitors(input);

    const CMonitorFit fit = FitRectangleOnMonitors(saved, monitors, screen);
    if (monitors.empty())
    {
        monitors.push_back({{0, 0, screen.cx, screen.cy}, true});
    }
    CheckFit(GetWindowToFit(saved, screen), monitors, fit);

    // A saved window opens in the same place, unless monitors overlap or are too small for any window.
    const bool bUsual = AreApart(monitors) && std::all_of(monitors.begin(), monitors.end(), [](const auto& monitor) {
                            return IsLargeEnough(monitor.rectangle);
                        });
    if (bUsual && !fit.switchedToMain)
    {
        Require(FitRectangleOnMonitors(fit.window, monitors, screen).window == fit.window, "the window moves again");
    }
    return 0;
}
