#include "app/LayoutRules.h"

#include <algorithm>

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

CRect RectangleAt(int left, int top, int width, int height)
{
    return {left, top, left + std::max(width, 0), top + std::max(height, 0)};
}

// A bar that becomes necessary in one direction takes room in the other, so the view grows by it before both lengths
// are cut to what there is. The vertical bar is decided first.
CRect PlaceWorldView(const CSize<int>& client, const CSize<int>& world, const CLayoutMeasures& measures)
{
    const int availableWidth = client.cx - c_iViewFromRight;
    const int availableHeight = client.cy - c_iViewFromBottom;

    int width = world.cx;
    int height = world.cy;
    if (availableHeight < height)
        width += measures.verticalScrollBarWidth;
    if (availableWidth < width)
        height += measures.horizontalScrollBarHeight;
    width = std::min(width, availableWidth);
    height = std::min(height, availableHeight);

    return RectangleAt((availableWidth - width) / 2 + c_iViewInset, (availableHeight - height) / 2 + c_iViewInset,
                       width, height);
}
} // namespace

CWindowedLayout ComputeWindowedLayout(const CSize<int>& client, const CSize<int>& world,
                                      const CLayoutMeasures& measures)
{
    CWindowedLayout layout;
    layout.statusPartRightEdges = {client.cx - measures.statusBarMargin - c_iClockPartsWidth,
                                   client.cx - measures.statusBarMargin - c_iTimePartWidth, -1};
    layout.statusBar = {0, client.cy, 0, client.cy};
    layout.startButton = RectangleAt(client.cx - c_iButtonFromRight, c_iButtonTop, c_iButtonWidth, c_iButtonHeight);
    layout.settingsPanel = RectangleAt(client.cx - c_iPanelFromRight, c_iPanelTop, c_iPanelWidth,
                                       client.cy - c_iPanelFromBottom - c_iPanelTop);
    layout.worldView = PlaceWorldView(client, world, measures);
    layout.versionText = {client.cx - c_iVersionWidth, client.cy - c_iVersionHeight, client.cx, client.cy};
    return layout;
}

CRect ComputeFullScreenView(const CSize<int>& client)
{
    return {0, 0, client.cx, client.cy};
}
