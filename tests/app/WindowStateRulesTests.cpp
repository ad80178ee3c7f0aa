#include "app/WindowStateRules.h"

#include <gtest/gtest.h>

namespace
{
constexpr CWindowState c_Normal{};
constexpr CWindowState c_Minimised{true, false, false};
constexpr CWindowState c_Maximised{false, true, false};
constexpr CWindowState c_FullScreen{false, false, true};
constexpr CWindowState c_MinimisedFullScreen{true, false, true};
} // namespace

TEST(WindowStateRules, RestoringLeavesFullScreen)
{
    EXPECT_EQ(GetMeaningOfRestore(c_FullScreen), EnumWindowChange::LeaveFullScreen);
    EXPECT_EQ(GetMeaningOfRestore({false, true, true}), EnumWindowChange::LeaveFullScreen);
}

TEST(WindowStateRules, RestoringIsTheSystemsWhereTheWindowIsMinimisedOrMaximised)
{
    EXPECT_EQ(GetMeaningOfRestore(c_Minimised), EnumWindowChange::SystemDefault);
    EXPECT_EQ(GetMeaningOfRestore(c_MinimisedFullScreen), EnumWindowChange::SystemDefault);
    EXPECT_EQ(GetMeaningOfRestore(c_Maximised), EnumWindowChange::SystemDefault);
}

TEST(WindowStateRules, ANormalWindowHasNothingToRestore)
{
    EXPECT_EQ(GetMeaningOfRestore(c_Normal), EnumWindowChange::Nothing);
}

TEST(WindowStateRules, MaximisingEntersFullScreenOnce)
{
    EXPECT_EQ(GetMeaningOfMaximise(c_Normal), EnumWindowChange::EnterFullScreen);
    EXPECT_EQ(GetMeaningOfMaximise(c_Minimised), EnumWindowChange::EnterFullScreen);
    EXPECT_EQ(GetMeaningOfMaximise(c_Maximised), EnumWindowChange::EnterFullScreen);
    EXPECT_EQ(GetMeaningOfMaximise(c_FullScreen), EnumWindowChange::Nothing);
}

TEST(WindowStateRules, MaximisingAMinimisedFullScreenShowsItAgain)
{
    EXPECT_EQ(GetMeaningOfMaximise(c_MinimisedFullScreen), EnumWindowChange::ShowAgain);
}

TEST(WindowStateRules, APlacementCountsFromTheCornerOfTheWorkArea)
{
    constexpr CRect c_Placement{20, 30, 660, 510};
    constexpr CRect c_Monitor{0, 0, 1920, 1080};
    EXPECT_EQ(GetPlacementOnScreen(c_Placement, c_Monitor, {0, 0, 1920, 1040}), c_Placement);
    EXPECT_EQ(GetPlacementOnScreen(c_Placement, c_Monitor, {60, 0, 1920, 1080}), (CRect{80, 30, 720, 510}));
    EXPECT_EQ(GetPlacementOnScreen(c_Placement, c_Monitor, {0, 40, 1920, 1080}), (CRect{20, 70, 660, 550}));
}

TEST(WindowStateRules, APlacementOnASecondMonitorIsMovedByThatMonitorsTaskBarOnly)
{
    EXPECT_EQ(GetPlacementOnScreen({-1200, 200, -600, 700}, {-1280, 100, 0, 1124}, {-1280, 140, 0, 1124}),
              (CRect{-1200, 240, -600, 740}));
}
