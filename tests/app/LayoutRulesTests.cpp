#include "app/LayoutRules.h"

#include <gtest/gtest.h>
#include <limits>

namespace
{
constexpr CLayoutMeasures c_Measures{20, 17, 18};
constexpr CSize<int> c_Client{984, 661};
} // namespace

TEST(Layout, PartsHaveFixedDistancesFromTheRightAndBottomEdges)
{
    const CWindowedLayout layout = ComputeWindowedLayout(c_Client, {512, 512}, c_Measures);

    EXPECT_EQ(layout.statusPartRightEdges, (std::array<int, 3>{984 - 20 - 158, 984 - 20 - 76, -1}));
    EXPECT_EQ(layout.statusBar.top, 661);
    EXPECT_EQ(layout.startButton, (CRect{844, 10, 974, 35}));
    EXPECT_EQ(layout.settingsPanel, (CRect{734, 60, 974, 60 + 661 - 125}));
    EXPECT_EQ(layout.versionText, (CRect{934, 596, 984, 661}));
}

TEST(Layout, AWorldThatFitsIsCentredInItsArea)
{
    const CWindowedLayout layout = ComputeWindowedLayout(c_Client, {512, 512}, c_Measures);

    const int left = (984 - 260 - 512) / 2 + 10;
    const int top = (661 - 45 - 512) / 2 + 10;
    EXPECT_EQ(layout.worldView, (CRect{left, top, left + 512, top + 512}));
}

TEST(Layout, AWorldThatIsTooHighGetsRoomForAVerticalBarBesideIt)
{
    const CWindowedLayout layout = ComputeWindowedLayout(c_Client, {300, 2000}, c_Measures);

    EXPECT_EQ(layout.worldView.GetWidth(), 300 + 17);
    EXPECT_EQ(layout.worldView.GetHeight(), 661 - 45);
    EXPECT_EQ(layout.worldView.top, 10);
}

TEST(Layout, AWorldThatIsTooWideGetsRoomForAHorizontalBarBelowIt)
{
    const CWindowedLayout layout = ComputeWindowedLayout(c_Client, {2000, 300}, c_Measures);

    EXPECT_EQ(layout.worldView.GetWidth(), 984 - 260);
    EXPECT_EQ(layout.worldView.GetHeight(), 300 + 18);
}

// The width of the vertical bar makes this world too wide, so the second bar appears too.
TEST(Layout, TheRoomOfOneScrollBarCanMakeTheOtherNecessary)
{
    const int availableWidth = 984 - 260;
    const CWindowedLayout layout = ComputeWindowedLayout(c_Client, {availableWidth - 1, 9999}, c_Measures);

    EXPECT_EQ(layout.worldView.GetWidth(), availableWidth);
    EXPECT_EQ(layout.worldView.GetHeight(), 661 - 45);
}

TEST(Layout, AWorldThatJustFitsGetsNoScrollBarRoom)
{
    const CWindowedLayout layout = ComputeWindowedLayout(c_Client, {984 - 260, 661 - 45}, c_Measures);

    EXPECT_EQ(layout.worldView, (CRect{10, 10, 10 + 724, 10 + 616}));
}

TEST(Layout, NoPartOfATinyWindowHasANegativeSize)
{
    const CWindowedLayout layout = ComputeWindowedLayout({134, 111}, {512, 512}, c_Measures);

    EXPECT_EQ(layout.worldView.GetWidth(), 0);
    EXPECT_GE(layout.worldView.GetHeight(), 0);
    EXPECT_EQ(layout.settingsPanel.GetHeight(), 0);
    EXPECT_EQ(layout.startButton.GetWidth(), 130);
}

// Before the first start the world has the size from the settings file, which can be any number.
TEST(Layout, AWorldOfAnySizeGetsTheAvailableRoom)
{
    constexpr int lowest = std::numeric_limits<int>::min();
    constexpr int highest = std::numeric_limits<int>::max();

    EXPECT_EQ(ComputeWindowedLayout(c_Client, {highest, highest}, c_Measures).worldView,
              (CRect{10, 10, 10 + 724, 10 + 616}));
    const CRect nothing = ComputeWindowedLayout(c_Client, {lowest, lowest}, c_Measures).worldView;
    EXPECT_EQ(nothing.GetWidth(), 0);
    EXPECT_EQ(nothing.GetHeight(), 0);
}

TEST(Layout, PartsOfANegativeClientAreaSaturateAtTheIntegerRange)
{
    constexpr int lowest = std::numeric_limits<int>::min();
    const CWindowedLayout layout = ComputeWindowedLayout({lowest, lowest}, {512, 512}, c_Measures);

    EXPECT_EQ(layout.statusPartRightEdges[0], lowest);
    EXPECT_EQ(layout.versionText, (CRect{lowest, lowest, lowest, lowest}));
}

TEST(Layout, FullScreenShowsOnlyTheWorldView)
{
    EXPECT_EQ(ComputeFullScreenView({1920, 1080}), (CRect{0, 0, 1920, 1080}));
}
