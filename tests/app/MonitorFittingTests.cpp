#include "app/MonitorFitting.h"

#include <gtest/gtest.h>
#include <limits>

namespace
{
constexpr CSize<int> c_Screen{1920, 1080};

// The main display, and a second one to its left with negative coordinates.
const std::vector<CMonitorArea> c_TwoMonitors{{{0, 0, 1920, 1080}, true}, {{-1280, 100, 0, 1124}, false}};
} // namespace

TEST(MonitorFitting, WithoutASavedRectangleADefaultWindowIsCentredOnThePrimaryScreen)
{
    const CMonitorFit fit = FitRectangleOnMonitors({0, 0, 0, 0}, c_TwoMonitors, c_Screen);

    EXPECT_EQ(fit.window, (CRect{460, 190, 1460, 890}));
    EXPECT_EQ(fit.bestMonitor, 0u);
    EXPECT_FALSE(fit.switchedToMain);
}

TEST(MonitorFitting, AnInvertedRectangleCountsAsNotSaved)
{
    const CMonitorFit fit = FitRectangleOnMonitors({900, 100, 300, 700}, c_TwoMonitors, c_Screen);

    EXPECT_EQ(fit.window, (CRect{460, 190, 1460, 890}));
}

TEST(MonitorFitting, ARectangleOnTheSecondMonitorStaysThere)
{
    const CRect saved{-1200, 150, -200, 850};
    const CMonitorFit fit = FitRectangleOnMonitors(saved, c_TwoMonitors, c_Screen);

    EXPECT_EQ(fit.window, saved);
    EXPECT_EQ(fit.bestMonitor, 1u);
    EXPECT_EQ(fit.monitor, (CRect{-1280, 100, 0, 1124}));
}

TEST(MonitorFitting, ARectangleAcrossTwoMonitorsGoesToTheOneThatShowsMoreOfIt)
{
    const CMonitorFit fit = FitRectangleOnMonitors({-700, 200, 300, 900}, c_TwoMonitors, c_Screen);

    EXPECT_EQ(fit.bestMonitor, 1u);
    EXPECT_EQ(fit.window, (CRect{-1280, 100, -280, 800}));
}

TEST(MonitorFitting, TiesGoToTheLowerIndex)
{
    const std::vector<CMonitorArea> twins{{{0, 0, 1000, 1000}, false}, {{1000, 0, 2000, 1000}, true}};
    const CMonitorFit fit = FitRectangleOnMonitors({500, 100, 1500, 800}, twins, c_Screen);

    EXPECT_EQ(fit.bestMonitor, 0u);
}

TEST(MonitorFitting, AWindowOnAMissingMonitorMovesToTheMainDisplaysCorner)
{
    const std::vector<CMonitorArea> monitors{{{-1280, 0, 0, 1024}, false}, {{0, 0, 1920, 1080}, true}};
    const CMonitorFit fit = FitRectangleOnMonitors({5000, 5000, 6000, 5700}, monitors, c_Screen);

    EXPECT_TRUE(fit.switchedToMain);
    EXPECT_EQ(fit.bestMonitor, 0u);
    EXPECT_EQ(fit.chosenMonitor, 1u);
    EXPECT_EQ(fit.window, (CRect{0, 0, 1000, 700}));
}

TEST(MonitorFitting, AMovedWindowIsNeverLargerThanItsMonitor)
{
    const std::vector<CMonitorArea> small{{{0, 0, 800, 600}, true}};
    const CMonitorFit fit = FitRectangleOnMonitors({5000, 5000, 6000, 5700}, small, {800, 600});

    EXPECT_EQ(fit.window, (CRect{0, 0, 800, 600}));
}

TEST(MonitorFitting, AWindowBelowTheMinimumIsTreatedAsNotFitting)
{
    const CMonitorFit narrow = FitRectangleOnMonitors({-1000, 200, -851, 900}, c_TwoMonitors, c_Screen);
    EXPECT_EQ(narrow.bestMonitor, 1u);
    EXPECT_TRUE(narrow.switchedToMain);
    EXPECT_EQ(narrow.chosenMonitor, 0u);
    EXPECT_EQ(narrow.window, (CRect{0, 0, 1000, 700}));

    const CMonitorFit low = FitRectangleOnMonitors({100, 100, 900, 249}, c_TwoMonitors, c_Screen);
    EXPECT_TRUE(low.switchedToMain);

    const CMonitorFit least = FitRectangleOnMonitors({100, 100, 250, 250}, c_TwoMonitors, c_Screen);
    EXPECT_FALSE(least.switchedToMain);
    EXPECT_EQ(least.window, (CRect{100, 100, 250, 250}));
}

TEST(MonitorFitting, WithoutAMainDisplayTheBestMonitorIsKept)
{
    const std::vector<CMonitorArea> monitors{{{0, 0, 800, 600}, false}, {{800, 0, 1600, 600}, false}};
    const CMonitorFit fit = FitRectangleOnMonitors({900, 100, 1000, 200}, monitors, {800, 600});

    EXPECT_TRUE(fit.switchedToMain);
    EXPECT_EQ(fit.chosenMonitor, 1u);
}

// Eight pixels of a corner may hang over the edge; the ninth moves the window.
TEST(MonitorFitting, OnlyACornerBeyondTheInsetMovesTheWindow)
{
    const std::vector<CMonitorArea> one{{{0, 0, 1920, 1080}, true}};

    EXPECT_EQ(FitRectangleOnMonitors({-8, -8, 900, 700}, one, c_Screen).window, (CRect{-8, -8, 900, 700}));
    EXPECT_EQ(FitRectangleOnMonitors({-9, 10, 900, 700}, one, c_Screen).window, (CRect{0, 0, 1000, 700}));
    EXPECT_EQ(FitRectangleOnMonitors({100, 100, 1927, 1087}, one, c_Screen).window, (CRect{100, 100, 1927, 1087}));
    EXPECT_EQ(FitRectangleOnMonitors({100, 100, 1928, 800}, one, c_Screen).window, (CRect{0, 0, 1000, 700}));
}

TEST(MonitorFitting, ExtremeNumbersFromTheFileNeitherOverflowNorLeaveTheMonitors)
{
    constexpr int lowest = std::numeric_limits<int>::min();
    constexpr int highest = std::numeric_limits<int>::max();

    EXPECT_EQ(FitRectangleOnMonitors({lowest, lowest, highest, highest}, c_TwoMonitors, c_Screen).window,
              (CRect{0, 0, 1000, 700}));
    EXPECT_EQ(FitRectangleOnMonitors({highest - 1, 0, highest, 700}, c_TwoMonitors, c_Screen).window,
              (CRect{0, 0, 1000, 700}));
}

TEST(MonitorFitting, AMonitorAtTheEndOfTheIntegerRangeCanHoldTheWindow)
{
    constexpr int highest = std::numeric_limits<int>::max();
    const std::vector<CMonitorArea> far{{{highest - 500, highest - 300, highest, highest}, true}};

    EXPECT_EQ(FitRectangleOnMonitors({0, 0, 1000, 700}, far, c_Screen).window,
              (CRect{highest - 500, highest - 300, highest, highest}));
}

TEST(MonitorFitting, AnEmptyMonitorListFallsBackToThePrimaryScreen)
{
    const CMonitorFit fit = FitRectangleOnMonitors({0, 0, 0, 0}, {}, {1280, 1024});

    EXPECT_EQ(fit.window, (CRect{140, 162, 1140, 862}));
}
