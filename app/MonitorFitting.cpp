#include "app/MonitorFitting.h"

#include "app/LayoutRules.h"
#include "classes/core/SaturateToInt.h"

#include <algorithm>
#include <cstdint>

namespace
{
// Pixels from the corners of a window to the points that must be on the monitor: the user can then grab the title bar
// and the size grip.
constexpr int c_iCornerInset = 8;

// Widths and areas are formed in 64 bits, because the settings file can hold any 32-bit coordinates.
std::int64_t Width64(const CRect& rectangle)
{
    return static_cast<std::int64_t>(rectangle.right) - rectangle.left;
}

std::int64_t Height64(const CRect& rectangle)
{
    return static_cast<std::int64_t>(rectangle.bottom) - rectangle.top;
}

std::uint64_t IntersectionArea(const CRect& a, const CRect& b)
{
    const CRect shared = Intersect(a, b);
    if (shared.IsEmpty())
    {
        return 0;
    }
    return static_cast<std::uint64_t>(Width64(shared)) * static_cast<std::uint64_t>(Height64(shared));
}

bool Contains64(const CRect& rectangle, std::int64_t x, std::int64_t y)
{
    return rectangle.left <= x && x < rectangle.right && rectangle.top <= y && y < rectangle.bottom;
}

CRect CentreDefaultWindow(const CSize<int>& screen)
{
    const int left = (screen.cx - Layout::c_iDefaultWindowWidth) / 2;
    const int top = (screen.cy - Layout::c_iDefaultWindowHeight) / 2;
    return {left, top, left + Layout::c_iDefaultWindowWidth, top + Layout::c_iDefaultWindowHeight};
}

std::size_t FindBestMonitor(const CRect& window, const std::vector<CMonitorArea>& monitors)
{
    std::size_t best = 0;
    std::uint64_t bestArea = IntersectionArea(window, monitors.front().rectangle);
    for (std::size_t i = 1; i < monitors.size(); ++i)
    {
        const std::uint64_t area = IntersectionArea(window, monitors[i].rectangle);
        if (area > bestArea)
        {
            best = i;
            bestArea = area;
        }
    }
    return best;
}

bool FitsOn(const CRect& window, const CRect& monitor)
{
    return IntersectionArea(window, monitor) > 0 && Width64(window) >= Layout::c_iMinimumWindowLength &&
           Height64(window) >= Layout::c_iMinimumWindowLength;
}

bool CornersShowOn(const CRect& window, const CRect& monitor)
{
    return Contains64(monitor, static_cast<std::int64_t>(window.left) + c_iCornerInset,
                      static_cast<std::int64_t>(window.top) + c_iCornerInset) &&
           Contains64(monitor, static_cast<std::int64_t>(window.right) - c_iCornerInset,
                      static_cast<std::int64_t>(window.bottom) - c_iCornerInset);
}

CRect MoveToCornerOf(const CRect& monitor)
{
    const std::int64_t right = std::int64_t{monitor.left} + Layout::c_iDefaultWindowWidth;
    const std::int64_t bottom = std::int64_t{monitor.top} + Layout::c_iDefaultWindowHeight;
    return {monitor.left, monitor.top, std::min(SaturateToInt(right), monitor.right),
            std::min(SaturateToInt(bottom), monitor.bottom)};
}
} // namespace

CMonitorFit FitRectangleOnMonitors(const CRect& saved, const std::vector<CMonitorArea>& monitors,
                                   const CSize<int>& primaryScreen)
{
    if (monitors.empty())
    {
        return FitRectangleOnMonitors(saved, {{{0, 0, primaryScreen.cx, primaryScreen.cy}, true}}, primaryScreen);
    }

    CMonitorFit fit;
    const bool nothingSaved = saved.right <= saved.left || saved.bottom <= saved.top;
    fit.window = nothingSaved ? CentreDefaultWindow(primaryScreen) : saved;

    fit.bestMonitor = FindBestMonitor(fit.window, monitors);
    fit.chosenMonitor = fit.bestMonitor;
    if (!FitsOn(fit.window, monitors[fit.bestMonitor].rectangle))
    {
        const auto main =
            std::find_if(monitors.begin(), monitors.end(), [](const CMonitorArea& monitor) { return monitor.isMain; });
        if (main != monitors.end())
        {
            fit.chosenMonitor = static_cast<std::size_t>(main - monitors.begin());
        }
        fit.switchedToMain = true;
    }

    fit.monitor = monitors[fit.chosenMonitor].rectangle;
    if (!CornersShowOn(fit.window, fit.monitor))
    {
        fit.window = MoveToCornerOf(fit.monitor);
    }
    return fit;
}
