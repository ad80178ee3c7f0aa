#include "app/LayoutRules.h"
#include "tests/fuzz/CFuzzInput.h"
#include "tests/fuzz/FuzzTarget.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>

namespace
{

constexpr int c_iAreaLeft = 10;
constexpr int c_iAreaTop = 10;
constexpr int c_iRightOfView = 260;
constexpr int c_iBelowView = 45;

// Every sum here is computed with 64 bits; the conversion to int saturates.
int Fit(std::int64_t value)
{
    return static_cast<int>(
        std::clamp<std::int64_t>(value, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

std::int64_t GetWidth64(const CRect& rc)
{
    return std::int64_t{rc.right} - rc.left;
}

std::int64_t GetHeight64(const CRect& rc)
{
    return std::int64_t{rc.bottom} - rc.top;
}

struct CCase
{
    CSize<int> client;
    CSize<int> world;
    CLayoutMeasures measures;
};

void CheckFixedParts(const CCase& c, const CWindowedLayout& layout)
{
    const std::int64_t w = c.client.cx;
    const std::int64_t h = c.client.cy;
    const std::int64_t margin = c.measures.statusBarMargin;
    Require(layout.statusPartRightEdges == std::array<int, 3>{Fit(w - margin - 158), Fit(w - margin - 76), -1},
            "the parts of the status bar end elsewhere");
    Require(layout.statusBar.left == 0 && layout.statusBar.top == c.client.cy, "the status bar is elsewhere");
    Require(layout.startButton == CRect{Fit(w - 140), 10, Fit(w - 10), 35}, "the button is elsewhere");
    Require(layout.settingsPanel == CRect{Fit(w - 250), 60, Fit(w - 10), Fit(std::max<std::int64_t>(h - 65, 60))},
            "the panel is elsewhere");
    Require(layout.versionText == CRect{Fit(w - 50), Fit(h - 65), c.client.cx, c.client.cy},
            "the version is elsewhere");
}

// The view's length in one direction: the world with the bar that the other direction needs, as far as there is room.
void CheckViewSize(const CCase& c, const CRect& view)
{
    const std::int64_t roomX = std::int64_t{c.client.cx} - c_iRightOfView;
    const std::int64_t roomY = std::int64_t{c.client.cy} - c_iBelowView;
    const std::int64_t wantedX =
        std::int64_t{c.world.cx} + (c.world.cy > roomY ? c.measures.verticalScrollBarWidth : 0);
    const std::int64_t wantedY =
        std::int64_t{c.world.cy} + (wantedX > roomX ? c.measures.horizontalScrollBarHeight : 0);
    const std::int64_t width = std::clamp<std::int64_t>(std::min(wantedX, roomX), 0, std::numeric_limits<int>::max());
    const std::int64_t height = std::clamp<std::int64_t>(std::min(wantedY, roomY), 0, std::numeric_limits<int>::max());
    Require(GetWidth64(view) == width && GetHeight64(view) == height, "the view has another size");
}

// If the world and the room for a view are not empty, the view is centred in its area.
void CheckViewPlace(const CCase& c, const CRect& view)
{
    const std::int64_t roomX = std::int64_t{c.client.cx} - c_iRightOfView;
    const std::int64_t roomY = std::int64_t{c.client.cy} - c_iBelowView;
    if (roomX < 0 || roomY < 0 || c.world.cx < 0 || c.world.cy < 0)
    {
        return;
    }
    const std::int64_t left = std::int64_t{view.left} - c_iAreaLeft;
    const std::int64_t right = roomX - left - GetWidth64(view);
    const std::int64_t top = std::int64_t{view.top} - c_iAreaTop;
    const std::int64_t bottom = roomY - top - GetHeight64(view);
    Require(left >= 0 && right >= left && right - left <= 1, "the view is not in the middle of its width");
    Require(top >= 0 && bottom >= top && bottom - top <= 1, "the view is not in the middle of its height");
}

} // namespace

// Numbers: the client area, the world, the status bar's margin, the widths of the scroll bars.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t uCount)
{
    constexpr int c_iMostBarWidth = 1000;
    CFuzzInput input(pBytes, uCount);
    CCase c;
    c.client.cx = input.TakeInt();
    c.client.cy = input.TakeInt();
    c.world.cx = input.TakeInt();
    c.world.cy = input.TakeInt();
    c.measures.statusBarMargin = input.TakeInt(0, c_iMostBarWidth);
    c.measures.verticalScrollBarWidth = input.TakeInt(0, c_iMostBarWidth);
    c.measures.horizontalScrollBarHeight = input.TakeInt(0, c_iMostBarWidth);

    const CWindowedLayout layout = ComputeWindowedLayout(c.client, c.world, c.measures);
    CheckFixedParts(c, layout);
    // The layout accepts a client area of negative size, but then nothing can be centred.
    constexpr int c_iFarEnough = std::numeric_limits<int>::min() / 2;
    if (c.client.cx > c_iFarEnough && c.client.cy > c_iFarEnough)
    {
        CheckViewSize(c, layout.worldView);
        CheckViewPlace(c, layout.worldView);
    }
    Require(ComputeFullScreenView(c.client) == CRect{0, 0, c.client.cx, c.client.cy}, "full screen is not full");
    return 0;
}
