#include "tests/sequences/StepCode.h"

#include <gtest/gtest.h>

TEST(StepCode, ASequenceIsWrittenAsATestThatCanBePasted)
{
    const std::vector<CStep> steps{
        {EnumAction::ShowMaximised}, {EnumAction::Click, {500, 20}}, {EnumAction::Escape, {}, true}};
    EXPECT_EQ(WriteTest("Seed7", steps), "TEST_F(ScriptedSequence, Seed7)\n"
                                         "{\n"
                                         "    ExpectAsPredicted({\n"
                                         "        {EnumAction::ShowMaximised},\n"
                                         "        {EnumAction::Click, {500, 20}},\n"
                                         "        {EnumAction::Escape, {}, c_bMeanwhile},\n"
                                         "    });\n"
                                         "}\n");
}

TEST(StepCode, EveryActionHasTheNameOfItsEnumerator)
{
    EXPECT_STREQ(GetName(EnumAction::Minimise), "Minimise");
    EXPECT_STREQ(GetName(EnumAction::RightClick), "RightClick");
    EXPECT_STREQ(GetName(EnumAction::SetWorldSize), "SetWorldSize");
    EXPECT_STREQ(GetName(EnumAction::SecondWindow), "SecondWindow");
}
