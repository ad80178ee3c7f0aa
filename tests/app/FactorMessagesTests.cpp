#include "app/FactorMessages.h"

#include <gtest/gtest.h>

TEST(FactorMessages, AnInvalidFactorIsNamedByTextAndTitle)
{
    const CFactorMessage message = GetFactorMessage({EnumFactorError::Invalid, 2});
    EXPECT_STREQ(message.sTextKey, L"Colour_factor_n_is_invalid");
    EXPECT_STREQ(message.sTitleKey, L"Colour_3_factor");
    EXPECT_EQ(message.factorNumber, 3);
}

// People know the box by its title: it is the label of factor 1 for the other two as well.
TEST(FactorMessages, ThatOfSpeedModeIsAlwaysTitledForFactor1)
{
    const CFactorMessage message = GetFactorMessage({EnumFactorError::PercentageInSpeedMode, 2});
    EXPECT_STREQ(message.sTextKey, L"Colour_factor_n_is_invalid_for_speed_mode");
    EXPECT_STREQ(message.sTitleKey, L"Colour_1_factor");
    EXPECT_EQ(message.factorNumber, 3);
}

TEST(FactorMessages, ThatAboutTheNumberOfFactorsNamesNone)
{
    const CFactorMessage message = GetFactorMessage({EnumFactorError::NotExactlyTwoSet, 0});
    EXPECT_STREQ(message.sTextKey, L"Need_exactly_two_out_of_three_factors");
    EXPECT_STREQ(message.sTitleKey, L"Error");
    EXPECT_EQ(message.factorNumber, 0);
}
