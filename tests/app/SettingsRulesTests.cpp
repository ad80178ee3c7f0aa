#include "app/SettingsRules.h"

#include <gtest/gtest.h>

TEST(SettingsRules, OnlyTheLowEightBitsOfTheColourModeCount)
{
    EXPECT_EQ(GetColourModeOfSetting(0), EnumAtomColourMode::Fixed);
    EXPECT_EQ(GetColourModeOfSetting(256), EnumAtomColourMode::Fixed);
    EXPECT_EQ(GetColourModeOfSetting(1), EnumAtomColourMode::Speed);
    EXPECT_EQ(GetColourModeOfSetting(2), EnumAtomColourMode::Speed);
    EXPECT_EQ(GetColourModeOfSetting(static_cast<unsigned>(-1)), EnumAtomColourMode::Speed);
}

TEST(SettingsRules, SpeedModeStartsRedGreyGreenWithTwoFactors)
{
    const auto& defaults = GetColourDefaults(EnumAtomColourMode::Speed);

    EXPECT_EQ(defaults[0].colour, 255u);
    EXPECT_EQ(defaults[1].colour, 8421504u);
    EXPECT_EQ(defaults[2].colour, 65280u);
    EXPECT_STREQ(defaults[0].factor, L"0.75");
    EXPECT_STREQ(defaults[1].factor, L"");
    EXPECT_STREQ(defaults[2].factor, L"1.25");
}

TEST(SettingsRules, FixedModeStartsRedRedGreenInQuarters)
{
    const auto& defaults = GetColourDefaults(EnumAtomColourMode::Fixed);

    EXPECT_EQ(defaults[0].colour, 255u);
    EXPECT_EQ(defaults[1].colour, 255u);
    EXPECT_EQ(defaults[2].colour, 65280u);
    EXPECT_STREQ(defaults[0].factor, L"25%");
    EXPECT_STREQ(defaults[1].factor, L"50%");
    EXPECT_STREQ(defaults[2].factor, L"25%");
}
