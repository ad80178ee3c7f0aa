#include "app/LayoutRules.h"

#include "classes/core/SaturateToInt.h"

#include <algorithm>
#include <cstdint>

namespace
{
constexpr int c_iClockPartsWidth = 158; // date and time
constexpr int c_iTimePartWidth = 76;

constexpr int c_iButtonFromRight = 140;
constexpr int c_iButtonTop = 10;
constexpr int c_iButtonWidth = 130;
constexpr int c_iButtonHeight = 25;

constexpr int c_iPanelFromRight = 250;
constexpr int c_iPanelTop = 60;
constexpr int c_iPanelWidth = 240;
constexpr int c_iPanelFromBottom = 65;

constexpr int c_iViewInset = 10;
constexpr int c_iViewFromRight = 260;
constexpr int c_iViewFromBottom = 45;

constexpr int c_iVersionWidth = 50;
constexpr int c_iVersionHeight = 65;

// Sums of pixels are formed in 64 bits, because the settings file can hold any size of the world.
CRect RectangleAt(std::int64_t left, std::int64_t top, std::int64_t width, std::int64_t height)
{
    return {SaturateToInt(left), SaturateToInt(top), SaturateToInt(left + std::max<std::int64_t>(width, 0)),
            SaturateToInt(top + std::max<std::int64_t>(height, 0))};
}

// A scroll bar in one direction takes room in the other. So the view grows by the bar before both lengths are limited
// to the room. The vertical bar is decided first.
CRect PlaceWorldView(const CSize<int>& client, const CSize<int>& world, const CLayoutMeasures& measures)
{
    const std::int64_t availableWidth = std::int64_t{client.cx} - c_iViewFromRight;
    const std::int64_t availableHeight = std::int64_t{client.cy} - c_iViewFromBottom;

    std::int64_t width = world.cx;
    std::int64_t height = world.cy;
    if (availableHeight < height)
    {
        width += measures.verticalScrollBarWidth;
    }
    if (availableWidth < width)
    {
        height += measures.horizontalScrollBarHeight;
    }
    width = std::min(width, availableWidth);
    height = std::min(height, availableHeight);

    return RectangleAt((availableWidth - width) / 2 + c_iViewInset, (availableHeight - height) / 2 + c_iViewInset,
                       width, height);
}
} // namespace

CWindowedLayout ComputeWindowedLayout(const CSize<int>& client, const CSize<int>& world,
                                      const CLayoutMeasures& measures)
{
    const std::int64_t width = client.cx;
    const std::int64_t height = client.cy;
    const std::int64_t clockRight = width - measures.statusBarMargin;
    CWindowedLayout layout;
    layout.statusPartRightEdges = {SaturateToInt(clockRight - c_iClockPartsWidth),
                                   SaturateToInt(clockRight - c_iTimePartWidth), -1};
    layout.statusBar = {0, client.cy, 0, client.cy};
    layout.startButton = RectangleAt(width - c_iButtonFromRight, c_iButtonTop, c_iButtonWidth, c_iButtonHeight);
    layout.settingsPanel =
        RectangleAt(width - c_iPanelFromRight, c_iPanelTop, c_iPanelWidth, height - c_iPanelFromBottom - c_iPanelTop);
    layout.worldView = PlaceWorldView(client, world, measures);
    layout.versionText = {SaturateToInt(width - c_iVersionWidth), SaturateToInt(height - c_iVersionHeight), client.cx,
                          client.cy};
    return layout;
}

CRect ComputeFullScreenView(const CSize<int>& client)
{
    return {0, 0, client.cx, client.cy};
}
