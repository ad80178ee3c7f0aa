#include "tests/windows/sequences/CRealWindow.h"

#include <gtest/gtest.h>

// Sequences that have once shown a fault, in their shortest form.

namespace
{
constexpr bool c_bMeanwhile = true;

class ScriptedSequence : public testing::Test
{
protected:
    void ExpectAsPredicted(const std::vector<CStep>& steps)
    {
        EXPECT_EQ(RunSequence(m_Window, steps).value_or(""), "");
    }

private:
    CRealWindow m_Window;
};
} // namespace

TEST_F(ScriptedSequence, AScrollRequestWithoutABarMovesNoLaterWorld)
{
    ExpectAsPredicted({
        {EnumAction::SetWorldSize, {232, 1704}},
        {EnumAction::ScrollVertically, {7}},
        {EnumAction::RightClick, {438, 661}},
        {EnumAction::Escape},
    });
}

TEST_F(ScriptedSequence, AMaximisedWindowThatIsMaximisedAgainInFullScreenGetsItsFrameBack)
{
    ExpectAsPredicted({
        {EnumAction::ShowMaximised},
        {EnumAction::Maximise},
        {EnumAction::ShowMaximised},
        {EnumAction::Escape},
    });
}

TEST_F(ScriptedSequence, ANormalWindowThatIsMaximisedAndMinimisedInFullScreenIsNormalAgain)
{
    ExpectAsPredicted({
        {EnumAction::Maximise},
        {EnumAction::PlaceMaximised},
        {EnumAction::Minimise},
        {EnumAction::Escape},
    });
}

TEST_F(ScriptedSequence, EscapeInTheMiddleOfMaximisingARunningWorldLeavesFullScreen)
{
    ExpectAsPredicted({
        {EnumAction::Click, {113, 609}},
        {EnumAction::Maximise},
        {EnumAction::Escape, {}, c_bMeanwhile},
    });
}
