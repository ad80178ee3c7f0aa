#include "tests/windows/CHeldWorker.h"
#include "tests/windows/CRunningApplication.h"

#include <gtest/gtest.h>
#include <regex>

namespace
{
constexpr int c_iClickX = 300;
constexpr int c_iClickY = 300;

// Small enough that Wine's software drawing does not slow the test down.
void SetSmallWorld(const CRunningApplication& application)
{
    application.SetControlText(L"Tot_atoms", L"8");
}

std::wstring GetStatusText(const CRunningApplication& application)
{
    HWND hStatusBar = nullptr;
    application.Do([&](CKinetarium& inside) { hStatusBar = CKinetariumProbe::GetStatusBar(inside); });
    return GetText(hStatusBar);
}
} // namespace

TEST(StartStop, TheButtonStartsAndStopsTheSimulation)
{
    CRunningApplication application;
    SetSmallWorld(application);
    EXPECT_EQ(application.GetButtonText(), L"Start");

    application.PressButton();
    ASSERT_TRUE(application.WaitForWorker(true));
    EXPECT_EQ(application.GetButtonText(), L"Stop");

    application.PressButton();
    ASSERT_TRUE(application.WaitForWorker(false));
    EXPECT_EQ(application.GetButtonText(), L"Start");
}

// Where a frame takes long, the worker leaves the window time for one repaint between two frames.
TEST(StartStop, AStartLeavesNothingToBePaintedBetweenTheFrames)
{
    CRunningApplication application;
    SetSmallWorld(application);
    application.Do([](CKinetarium& inside) {
        const HWND hMain = GetAncestor(CKinetariumProbe::GetStartButton(inside), GA_ROOT);
        InvalidateRect(hMain, nullptr, FALSE);
        InvalidateRect(CKinetariumProbe::GetStatusBar(inside), nullptr, FALSE);
        CKinetariumProbe::Start(inside);
        for (const HWND hWindow : {hMain, CKinetariumProbe::GetStartButton(inside),
                                   CKinetariumProbe::GetStatusBar(inside), CKinetariumProbe::GetPanel(inside)})
        {
            EXPECT_FALSE(GetUpdateRect(hWindow, nullptr, FALSE)) << GetText(hWindow);
        }
        CKinetariumProbe::Stop(inside);
    });
}

TEST(StartStop, TheStatisticsLineReachesTheStatusBar)
{
    CRunningApplication application;
    SetSmallWorld(application);
    application.PressButton();

    const std::wregex line(LR"(Iter = \d+   \d+\.\d\d ms = \d+\.\d\d FPS     velocity: min = \d+\.\d{3}   )"
                           LR"(max = \d+\.\d{3}   tot = \d+\.\d{3}   avg = \d+\.\d{3}   collided = \d+\.\d\d%)");
    EXPECT_TRUE(CRunningApplication::Poll([&] { return std::regex_match(GetStatusText(application), line); }))
        << "the status bar shows something else";
}

TEST(StartStop, StoppingWithoutASimulationDoesNotEvenDisableTheButton)
{
    CRunningApplication application;
    application.Do([](CKinetarium& inside) {
        CKinetariumProbe::Stop(inside);
        EXPECT_TRUE(IsWindowEnabled(CKinetariumProbe::GetStartButton(inside)));
        EXPECT_FALSE(CKinetariumProbe::HasWorker(inside));
    });
    EXPECT_EQ(application.GetButtonText(), L"Start");
}

TEST(StartStop, AStopReturnsOnlyWhenTheWorkerHasEnded)
{
    CRunningApplication application;
    SetSmallWorld(application);
    application.Do([](CKinetarium& inside) {
        CKinetariumProbe::Start(inside);
        EXPECT_TRUE(CKinetariumProbe::HasWorker(inside));
        CKinetariumProbe::Stop(inside);
        EXPECT_FALSE(CKinetariumProbe::HasWorker(inside));
        EXPECT_TRUE(IsWindowEnabled(CKinetariumProbe::GetStartButton(inside)));
    });
}

TEST(StartStop, AStartWhileAWorkerExistsChangesNothing)
{
    CRunningApplication application;
    SetSmallWorld(application);
    application.Do([](CKinetarium& inside) { CKinetariumProbe::Start(inside); });
    application.SetControlText(L"Tot_atoms", L"77");
    application.Do([](CKinetarium& inside) {
        CKinetariumProbe::Start(inside);
        EXPECT_EQ(CKinetariumProbe::GetAtomCount(inside), 8);
    });
}

TEST(StartStop, AClickInTheWorldStartsAnIdleSimulation)
{
    CRunningApplication application;
    SetSmallWorld(application);
    application.ClickWorld(c_iClickX, c_iClickY);
    EXPECT_TRUE(application.WaitForWorker(true));
    EXPECT_EQ(application.GetButtonText(), L"Stop");
}

TEST(StartStop, AClickInTheWorldRestartsARunningSimulation)
{
    CRunningApplication application;
    SetSmallWorld(application);
    application.PressButton();
    ASSERT_TRUE(application.WaitForWorker(true));

    application.SetControlText(L"Tot_atoms", L"9");
    application.ClickWorld(c_iClickX, c_iClickY);
    EXPECT_TRUE(application.WaitUntil([](CKinetarium& inside) {
        return CKinetariumProbe::HasWorker(inside) && CKinetariumProbe::GetAtomCount(inside) == 9;
    }));
}

TEST(StartStop, AClickInAScrolledWorldStartsAtTheClickedPoint)
{
    constexpr float c_fStep = 20; // longer than the first step of an atom
    const CHeldWorker worker;
    const CRunningApplication application;
    application.SetControlText(L"Tot_atoms", L"1");
    application.SetControlText(L"Width", L"2000");
    application.SetControlText(L"Height", L"2000");
    CPoint<float> expected;
    application.Do([&](CKinetarium& inside) {
        worker.Open();
        CKinetariumProbe::Start(inside);
        CKinetariumProbe::Stop(inside);
        worker.Close();
        const HWND hView = CKinetariumProbe::GetView(inside);
        SendMessageW(hView, WM_HSCROLL, SB_BOTTOM, 0);
        SendMessageW(hView, WM_VSCROLL, SB_PAGEDOWN, 0);
        POINT pt{c_iClickX, c_iClickY};
        MapWindowPoints(application.GetMain(), hView, &pt, 1);
        EXPECT_GT(GetScrollPos(hView, SB_HORZ), 0);
        EXPECT_GT(GetScrollPos(hView, SB_VERT), 0);
        expected = {static_cast<float>(pt.x + GetScrollPos(hView, SB_HORZ)),
                    static_cast<float>(pt.y + GetScrollPos(hView, SB_VERT))};
    });
    application.ClickWorld(c_iClickX, c_iClickY);
    ASSERT_TRUE(worker.Wait());
    application.Do([&](CKinetarium& inside) {
        const CPoint<float> atom = CKinetariumProbe::GetFirstAtom(inside);
        EXPECT_NEAR(atom.x, expected.x, c_fStep);
        EXPECT_NEAR(atom.y, expected.y, c_fStep);
    });
    worker.Open();
}

TEST(StartStop, AClickOutsideTheWorldDoesNothing)
{
    CRunningApplication application;
    SetSmallWorld(application);
    application.ClickWorld(2, 2);
    application.Do([](CKinetarium& inside) { EXPECT_FALSE(CKinetariumProbe::HasWorker(inside)); });
}

TEST(StartStop, ClosingARunningSimulationEndsTheRun)
{
    CRunningApplication application;
    SetSmallWorld(application);
    application.PressButton();
    ASSERT_TRUE(application.WaitForWorker(true));
    EXPECT_TRUE(application.Close());
}

TEST(StartStop, TwoHundredRoundsWithClicksMixedInEndCleanly)
{
    constexpr int rounds = 200;
    constexpr int clickEvery = 3;
    CRunningApplication application;
    SetSmallWorld(application);
    for (int round = 0; round < rounds; ++round)
    {
        application.Do([](CKinetarium& inside) { CKinetariumProbe::Start(inside); });
        ASSERT_TRUE(application.WaitForWorker(true)) << "in round " << round;
        if (round % clickEvery == 0)
        {
            application.ClickWorld(c_iClickX, c_iClickY);
            application.ClickWorld(c_iClickX + round, c_iClickY);
        }
        application.Do([](CKinetarium& inside) { CKinetariumProbe::Stop(inside); });
    }
    EXPECT_TRUE(application.Close());
}
