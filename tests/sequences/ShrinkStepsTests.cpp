#include "tests/sequences/ShrinkSteps.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace
{
// Steps that differ from each other.
std::vector<CStep> MakeSteps(int iCount)
{
    std::vector<CStep> steps;
    for (int i = 0; i < iCount; ++i)
    {
        steps.push_back({EnumAction::Wheel, {i}});
    }
    return steps;
}

bool Has(const std::vector<CStep>& steps, int iValue)
{
    return std::any_of(steps.begin(), steps.end(), [&](const CStep& step) { return step.values[0] == iValue; });
}
} // namespace

TEST(ShrinkSteps, TwoStepsThatAreFarApartRemainInTheirOrder)
{
    const auto fails = [](const std::vector<CStep>& steps) { return Has(steps, 3) && Has(steps, 41); };
    const std::vector<CStep> expected{{EnumAction::Wheel, {3}}, {EnumAction::Wheel, {41}}};
    EXPECT_EQ(ShrinkSteps(MakeSteps(50), fails), expected);
}

TEST(ShrinkSteps, EveryRemainingStepIsNeeded)
{
    // Fails with an even number of steps among which is the seventh: pairs go, single steps do not.
    const auto fails = [](const std::vector<CStep>& steps) { return steps.size() % 2 == 0 && Has(steps, 7); };
    const std::vector<CStep> shortest = ShrinkSteps(MakeSteps(20), fails);
    EXPECT_EQ(shortest.size(), 2U);
    EXPECT_TRUE(Has(shortest, 7));
}

TEST(ShrinkSteps, ASequenceOfWhichEveryStepIsNeededStaysWhole)
{
    const auto fails = [](const std::vector<CStep>& steps) { return steps.size() == 9; };
    EXPECT_EQ(ShrinkSteps(MakeSteps(9), fails), MakeSteps(9));
}

TEST(ShrinkSteps, WhatAlwaysFailsShrinksToNothing)
{
    const auto fails = [](const std::vector<CStep>&) { return true; };
    EXPECT_TRUE(ShrinkSteps(MakeSteps(33), fails).empty());
}

TEST(ShrinkSteps, AStepInTheMiddleOfAnotherComesAfterItIfThatFailsToo)
{
    const auto fails = [](const std::vector<CStep>& steps) { return steps.size() >= 2; };
    std::vector<CStep> steps = MakeSteps(2);
    steps[1].bMeanwhile = true;
    EXPECT_EQ(ShrinkSteps(steps, fails), MakeSteps(2));
}

TEST(ShrinkSteps, AStepStaysInTheMiddleOfAnotherIfOnlyThatFails)
{
    const auto fails = [](const std::vector<CStep>& steps) { return steps.size() >= 2 && steps.back().bMeanwhile; };
    std::vector<CStep> steps = MakeSteps(2);
    steps[1].bMeanwhile = true;
    EXPECT_EQ(ShrinkSteps(steps, fails), steps);
}
