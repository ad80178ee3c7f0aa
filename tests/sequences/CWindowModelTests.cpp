#include "tests/sequences/CModelWindow.h"

#include <gtest/gtest.h>

#include <initializer_list>

// Each expected number is reckoned by hand for the screen of CModelWindow.h.

namespace
{
constexpr CRect c_Monitor = c_Screen.monitor;

CWindowFacts TakeAll(std::initializer_list<CStep> steps)
{
    CWindowModel model(c_Screen);
    for (const CStep& step : steps)
    {
        EXPECT_TRUE(model.Take(step)) << GetName(step.eAction);
    }
    return model.GetFacts();
}

bool CanTakeLast(std::initializer_list<CStep> steps, const CStep& last)
{
    CWindowModel model(c_Screen);
    for (const CStep& step : steps)
    {
        model.Take(step);
    }
    return model.CanTake(last);
}
} // namespace

TEST(WindowModel, TheFirstWindowShowsTheWholeWorldWithoutBars)
{
    const CWindowFacts facts = TakeAll({});
    EXPECT_FALSE(facts.bFullScreen || facts.bMinimised || facts.bMaximised || facts.bRunning);
    EXPECT_TRUE(facts.bPanel && facts.bStatusBar && facts.bStartButton && facts.bTitleBar);
    EXPECT_EQ(facts.window, c_FirstWindow);
    EXPECT_EQ(facts.restored, c_FirstWindow);
    // The client area is 792 x 566, of which the view has 532 x 521.
    EXPECT_EQ(facts.view, (CViewFacts{{76, 120, 476, 420}, {}, {}, {0, 0, 400, 300}}));
}

TEST(WindowModel, FullScreenShowsOnlyAWorldOfTheMonitorsSize)
{
    const CWindowFacts facts = TakeAll({{EnumAction::FullScreenKey}});
    EXPECT_TRUE(facts.bFullScreen && facts.bRunning);
    EXPECT_FALSE(facts.bPanel || facts.bStatusBar || facts.bStartButton || facts.bTitleBar || facts.bMaximised);
    EXPECT_EQ(facts.window, c_Monitor);
    EXPECT_EQ(facts.restored, std::nullopt);
    EXPECT_EQ(facts.view, (CViewFacts{c_Monitor, {}, {}, c_Monitor}));
    EXPECT_EQ(facts.panelWorld, c_FirstWorld);
}

TEST(WindowModel, AWindowThatBecameMaximisedWithoutACommandIsMaximisedAgainAfterFullScreen)
{
    for (const EnumAction eWay : {EnumAction::ShowMaximised, EnumAction::PlaceMaximised})
    {
        const CWindowFacts facts = TakeAll({{eWay}, {EnumAction::FullScreenKey}, {EnumAction::Restore}});
        EXPECT_TRUE(facts.bMaximised);
        EXPECT_EQ(facts.window, c_Screen.maximised);
        EXPECT_EQ(facts.restored, c_FirstWindow);
        EXPECT_EQ(facts.world, c_FirstWorld);
    }
}

TEST(WindowModel, RestoringTwiceInTheMiddleLeavesFullScreenAndThenRestoresTheMaximisedWindow)
{
    const CWindowFacts facts = TakeAll({{EnumAction::ShowMaximised},
                                        {EnumAction::FullScreenKey},
                                        {EnumAction::Restore},
                                        {EnumAction::Restore, {}, true}});
    EXPECT_FALSE(facts.bMaximised || facts.bFullScreen);
    EXPECT_EQ(facts.window, c_FirstWindow);
}

TEST(WindowModel, AMinimisedWindowComesBackAsItWas)
{
    EXPECT_EQ(TakeAll({{EnumAction::Minimise}}).window, std::nullopt);
    EXPECT_EQ(TakeAll({{EnumAction::Minimise}, {EnumAction::Restore}}).window, c_FirstWindow);
    EXPECT_TRUE(TakeAll({{EnumAction::ShowMaximised}, {EnumAction::Minimise}, {EnumAction::Restore}}).bMaximised);
    EXPECT_TRUE(TakeAll({{EnumAction::Escape}, {EnumAction::Maximise}, {EnumAction::Minimise}, {EnumAction::Restore}})
                    .bFullScreen);
}

TEST(WindowModel, MaximisingAMinimisedWindowEntersFullScreen)
{
    const CWindowFacts facts = TakeAll({{EnumAction::Minimise}, {EnumAction::Maximise}});
    EXPECT_TRUE(facts.bFullScreen);
    EXPECT_FALSE(facts.bMinimised);
}

TEST(WindowModel, ATitleThatIsDoubleClickedEntersFullScreenOrRestoresAMaximisedWindow)
{
    EXPECT_TRUE(TakeAll({{EnumAction::TitleDoubleClick}}).bFullScreen);
    EXPECT_EQ(TakeAll({{EnumAction::PlaceMaximised}, {EnumAction::TitleDoubleClick}}).window, c_FirstWindow);
}

TEST(WindowModel, ABarIsThereIfTheOtherOneTakesTheRoomOfTheWorld)
{
    // 532 x 521: the world's height alone needs a bar, and that bar's 16 pixels make the width too large.
    const CWindowFacts both = TakeAll({{EnumAction::SetWorldSize, {520, 600}}, {EnumAction::Start}});
    EXPECT_EQ(both.view->vertical, (CBarFacts{600, 506, 0}));
    EXPECT_EQ(both.view->horizontal, (CBarFacts{520, 516, 0}));
    const CWindowFacts one = TakeAll({{EnumAction::SetWorldSize, {516, 600}}, {EnumAction::Start}});
    EXPECT_EQ(one.view->vertical, (CBarFacts{600, 521, 0}));
    EXPECT_EQ(one.view->horizontal, std::nullopt);
    EXPECT_EQ(one.view->view, (CRect{10, 10, 542, 531}));
}

TEST(WindowModel, AScrolledWorldIsMovedAndEndsAtTheEdgeOfTheView)
{
    const CWindowFacts facts = TakeAll({{EnumAction::SetWorldSize, {1000, 900}},
                                        {EnumAction::Start},
                                        {EnumAction::ScrollHorizontally, {7}},
                                        {EnumAction::Wheel, {-240}}});
    EXPECT_EQ(facts.view->horizontal, (CBarFacts{1000, 516, 484}));
    EXPECT_EQ(facts.view->vertical, (CBarFacts{900, 506, 120}));
    EXPECT_EQ(facts.view->world, (CRect{-484, -120, 516, 780}));
}

TEST(WindowModel, AClickStartsAtThePointOfTheWorldThatLiesUnderIt)
{
    const CWindowFacts facts = TakeAll({{EnumAction::SetWorldSize, {1000, 900}},
                                        {EnumAction::Start},
                                        {EnumAction::ScrollHorizontally, {7}},
                                        {EnumAction::Click, {500, 500}}});
    EXPECT_EQ(facts.burst, (CPoint<int>{484 + 258, 253}));
}

TEST(WindowModel, AClickInTheMiddleOfAStepWasAimedAtTheViewBeforeIt)
{
    const CWindowFacts facts = TakeAll({{EnumAction::FullScreenKey}, {EnumAction::Click, {500, 500}, true}});
    EXPECT_EQ(facts.burst, (CPoint<int>{276, 270}));
}

TEST(WindowModel, TheFileHoldsTheRectangleToWhichTheWindowWouldBeRestored)
{
    constexpr CRect c_Window{20, 30, 700, 600};
    const CWindowFacts facts =
        TakeAll({{EnumAction::Resize, {20, 30, 700, 600}}, {EnumAction::FullScreenKey}, {EnumAction::Reopen}});
    EXPECT_EQ(facts.file, (CFileFacts{true, c_Window, c_FirstWorld}));
    EXPECT_EQ(facts.window, c_Window);
    EXPECT_FALSE(facts.bFullScreen || facts.bRunning);
}

TEST(WindowModel, TheEndOfTheSessionRestoresAFramedWindowAndStopsTheWorld)
{
    const CWindowFacts facts = TakeAll({{EnumAction::Start}, {EnumAction::ShowMaximised}, {EnumAction::EndSession}});
    EXPECT_FALSE(facts.bMaximised || facts.bRunning);
    EXPECT_TRUE(facts.file.bWhole);
}

TEST(WindowModel, ASecondWindowShowsWhatTheFileHoldsAndLeavesItsOwnSettings)
{
    const CWindowFacts facts = TakeAll({{EnumAction::SetWorldSize, {600, 500}}, {EnumAction::SecondWindow, {77, 88}}});
    EXPECT_EQ(facts.other, (COtherWindowFacts{c_FirstWindow, c_FirstWorld}));
    EXPECT_EQ(facts.file, (CFileFacts{true, c_FirstWindow, {77, 88}}));
    EXPECT_EQ(facts.panelWorld, (CSize<int>{600, 500}));
}

TEST(WindowModel, AWindowWithoutRoomForTheViewShowsNone)
{
    const CWindowFacts facts = TakeAll({{EnumAction::Resize, {0, 0, 290, 500}}});
    EXPECT_EQ(facts.view, std::nullopt);
    EXPECT_EQ(facts.window, (CRect{0, 0, 290, 500}));
    EXPECT_FALSE(CanTakeLast({{EnumAction::Resize, {0, 0, 290, 500}}}, {EnumAction::Click, {500, 500}}));
}

TEST(WindowModel, AClickIsNotKeptBesideARequestForFullScreen)
{
    const CStep click{EnumAction::Click, {500, 500}, true};
    EXPECT_TRUE(CanTakeLast({{EnumAction::FullScreenKey}}, click));
    EXPECT_FALSE(CanTakeLast({{EnumAction::FullScreenKey}, {EnumAction::Escape, {}, true}}, click));
    EXPECT_FALSE(CanTakeLast({{EnumAction::FullScreenKey}, click}, {EnumAction::Escape, {}, true}));
}

TEST(WindowModel, RestoringInTheMiddleStandsAlone)
{
    const CStep restore{EnumAction::Restore, {}, true};
    const CStep escape{EnumAction::Escape, {}, true};
    EXPECT_TRUE(CanTakeLast({{EnumAction::FullScreenKey}}, restore));
    EXPECT_FALSE(CanTakeLast({{EnumAction::FullScreenKey}, escape}, restore));
    EXPECT_FALSE(CanTakeLast({{EnumAction::FullScreenKey}, restore}, escape));
    EXPECT_FALSE(CanTakeLast({{EnumAction::Minimise}, {EnumAction::FullScreenKey}}, restore));
}

TEST(WindowModel, ABarThatIsNotThereKeepsNothing)
{
    const CWindowFacts facts = TakeAll({{EnumAction::Wheel, {-240}},
                                        {EnumAction::ScrollHorizontally, {7}},
                                        {EnumAction::SetWorldSize, {1000, 900}},
                                        {EnumAction::Start}});
    EXPECT_EQ(facts.view->world, (CRect{0, 0, 1000, 900}));
}

TEST(WindowModel, NobodyCanUseWhatIsNotThere)
{
    EXPECT_FALSE(CanTakeLast({{EnumAction::FullScreenKey}}, {EnumAction::Stop}));
    EXPECT_FALSE(CanTakeLast({{EnumAction::FullScreenKey}}, {EnumAction::TitleDoubleClick}));
    EXPECT_FALSE(CanTakeLast({{EnumAction::ShowMaximised}}, {EnumAction::Resize, {0, 0, 500, 500}}));
    EXPECT_FALSE(CanTakeLast({{EnumAction::Minimise}}, {EnumAction::Click, {500, 500}}));
    EXPECT_FALSE(CanTakeLast({}, {EnumAction::Stop}));
    EXPECT_FALSE(CanTakeLast({}, {EnumAction::Escape, {}, true}));
    EXPECT_FALSE(CanTakeLast({{EnumAction::Wheel, {120}}}, {EnumAction::Escape, {}, true}));
}
