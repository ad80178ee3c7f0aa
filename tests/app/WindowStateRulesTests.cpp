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
