#include "tests/sequences/CModelWindow.h"

#include <gtest/gtest.h>

namespace
{
// Full screen leaves the panel where it is.
void LeavePanel(const std::vector<CTakenStep>&, CWindowFacts& facts)
{
    facts.bPanel = true;
}

// Escape that comes in the middle of a step does nothing.
void LoseEscape(const std::vector<CTakenStep>& group, CWindowFacts& facts)
{
    for (const CTakenStep& taken : group)
    {
        const bool bLost = taken.step.eAction == EnumAction::Escape && taken.step.bMeanwhile;
        facts.bFullScreen = facts.bFullScreen || bLost;
    }
}
} // namespace

TEST(RunSequence, AWindowThatDoesWhatTheModelPredictsPasses)
{
    CModelWindow window;
    constexpr int c_iSequences = 300;
    const CSearchResult result = SearchSequences(window, 1, c_iSequences);
    EXPECT_EQ(result.sDifferences, "");
    EXPECT_EQ(window.GetOpened(), c_iSequences);
}

TEST(RunSequence, APlantedFaultIsFoundAndShrunkToTheStepThatShowsIt)
{
    CModelWindow window(LeavePanel);
    const CSearchResult result = SearchSequences(window, 1, 100);
    EXPECT_EQ(result.sDifferences, "panel: expected no, is yes\n");
    ASSERT_EQ(result.shortest.size(), 1U);
}

TEST(RunSequence, AFaultInTheMiddleOfAStepIsShrunkToThatStepAndToTheOneInItsMiddle)
{
    CModelWindow window(LoseEscape);
    const CSearchResult result = SearchSequences(window, 1, 100);
    EXPECT_EQ(result.sDifferences.substr(0, 11), "full screen");
    ASSERT_EQ(result.shortest.size(), 2U);
    EXPECT_FALSE(result.shortest[0].bMeanwhile);
    EXPECT_EQ(result.shortest[1], (CStep{EnumAction::Escape, {}, true}));
}

TEST(RunSequence, AStepThatIsImpossibleIsLeftOut)
{
    int iPerformed = 0;
    CModelWindow window([&](const std::vector<CTakenStep>&, CWindowFacts&) { ++iPerformed; });
    EXPECT_FALSE(RunSequence(window, {{EnumAction::Stop}, {EnumAction::Minimise}, {EnumAction::Click, {500, 500}}}));
    EXPECT_EQ(iPerformed, 1);
}

TEST(RunSequence, TheFirstDifferenceEndsTheSequence)
{
    int iPerformed = 0;
    CModelWindow window([&](const std::vector<CTakenStep>&, CWindowFacts& facts) {
        ++iPerformed;
        facts.bTitleBar = false;
    });
    const std::optional<std::string> found = RunSequence(window, {{EnumAction::Start}, {EnumAction::Stop}});
    EXPECT_EQ(found.value_or(""), "title bar: expected yes, is no\n");
    EXPECT_EQ(iPerformed, 1);
}
