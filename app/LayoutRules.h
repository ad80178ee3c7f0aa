#pragma once

#include "classes/core/CRect.h"
#include "classes/core/CSize.h"

#include <array>

// The places of the parts of the main window, in client pixels. The program declares itself DPI-unaware, so the system
// scales these pixels and the program never does.
namespace Layout
{
constexpr int c_iDefaultWindowWidth = 1000;
constexpr int c_iDefaultWindowHeight = 700;

// The window cannot be dragged below this width or height, and a smaller one in the settings file is not restored.
constexpr int c_iMinimumWindowLength = 150;

constexpr int c_iStatusPartCount = 3;
} // namespace Layout

// The measures of the system that the layout depends on, in pixels.
struct CLayoutMeasures
{
    int statusBarMargin = 0;           // kept free to the right of the clock
    int verticalScrollBarWidth = 0;    // SM_CXVSCROLL
    int horizontalScrollBarHeight = 0; // SM_CYHSCROLL
};

// The framed window's layout.
struct CWindowedLayout
{
    std::array<int, Layout::c_iStatusPartCount> statusPartRightEdges{}; // -1: to the edge
    CRect statusBar; // only the top left corner counts: the bar sizes itself
    CRect startButton;
    CRect settingsPanel;
    CRect worldView;
    CRect versionText;
};

// Lays out a client area of any size; parts without room have the size 0.
// `world` is the world's size in pixels.
CWindowedLayout ComputeWindowedLayout(const CSize<int>& client, const CSize<int>& world,
                                      const CLayoutMeasures& measures);

// In full screen the world view fills the client area.
CRect ComputeFullScreenView(const CSize<int>& client);
