#include "tests/sequences/CModelWindow.h"
#include "tests/sequences/StepGenerator.h"

#include <gtest/gtest.h>

#include <set>

namespace
{
constexpr std::uint64_t c_uSeeds = 200;
} // namespace

TEST(StepGenerator, ASeedAlwaysGivesTheSameSteps)
{
    for (std::uint64_t uSeed = 0; uSeed < c_uSeeds; ++uSeed)
    {
        EXPECT_EQ(GenerateSteps(uSeed, c_Screen), GenerateSteps(uSeed, c_Screen));
    }
}

TEST(StepGenerator, AnotherSeedGivesOtherSteps)
{
    for (std::uint64_t uSeed = 0; uSeed < c_uSeeds; ++uSeed)
    {
        EXPECT_NE(GenerateSteps(uSeed, c_Screen), GenerateSteps(uSeed + 1, c_Screen));
    }
}

// Both builds run this, so both have the same steps.
TEST(StepGenerator, TheStepsOfASeedNeverChange)
{
    const std::vector<CStep> steps = GenerateSteps(1, c_Screen);
    std::uint64_t uSum = 0;
    for (const CStep& step : steps)
    {
        uSum = uSum * 31 + static_cast<std::uint64_t>(step.eAction) + (step.bMeanwhile ? 100 : 0);
        for (const int iValue : step.values)
        {
            uSum = uSum * 31 + static_cast<std::uint64_t>(static_cast<std::int64_t>(iValue));
        }
    }
    EXPECT_EQ(steps.size(), 32U);
    EXPECT_EQ(uSum, 3531373327182848648U);
}

TEST(StepGenerator, EachSequenceHasTwentyToSixtyStepsAndAllOfThemArePossible)
{
    for (std::uint64_t uSeed = 0; uSeed < c_uSeeds; ++uSeed)
    {
        const std::vector<CStep> steps = GenerateSteps(uSeed, c_Screen);
        EXPECT_GE(steps.size(), 20U);
        EXPECT_LE(steps.size(), 60U);
        CWindowModel model(c_Screen);
        for (const CStep& step : steps)
        {
            EXPECT_TRUE(model.Take(step)) << uSeed << ' ' << GetName(step.eAction);
        }
    }
}

TEST(StepGenerator, EveryActionOccurs)
{
    std::set<EnumAction> actions;
    std::set<EnumAction> meanwhile;
    for (std::uint64_t uSeed = 0; uSeed < c_uSeeds; ++uSeed)
    {
        for (const CStep& step : GenerateSteps(uSeed, c_Screen))
        {
            (step.bMeanwhile ? meanwhile : actions).insert(step.eAction);
        }
    }
    EXPECT_EQ(actions.size(), c_uActionCount);
    EXPECT_EQ(meanwhile, (std::set<EnumAction>{EnumAction::Restore, EnumAction::Maximise, EnumAction::FullScreenKey,
                                               EnumAction::Escape, EnumAction::Click, EnumAction::Reopen}));
}
