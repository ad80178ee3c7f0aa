#include "classes/core/CountProcessors.h"
#include "tests/endtoend/CChance.h"
#include "tests/endtoend/CEndToEndTest.h"
#include "tests/endtoend/CLeakWatch.h"
#include "tests/endtoend/CPanelUser.h"
#include "tests/endtoend/CSoakPlan.h"
#include "tests/endtoend/CStorm.h"
#include "tests/endtoend/ProcessCounts.h"
#include "tests/endtoend/UserInput.h"
#include "tests/endtoend/WaitUntil.h"

#include <chrono>
#include <iostream>
#include <string>

namespace
{
constexpr auto c_patience = std::chrono::milliseconds(20000);
constexpr int c_iWarmUpRounds = 10;
constexpr int c_iLegs = 6;

// Repeated actions must not leak resources. The plan sets the number of repetitions.
class Soak : public CEndToEndTest
{
protected:
    Soak() : m_leaks(m_program), m_chance(m_plan.seed)
    {
        std::cout << "seed " << m_plan.seed << " (" << c_sSoakSeedVariable << ")" << std::endl;
    }

    POINT ChoosePointInWorld()
    {
        const RECT rc = m_user.GetWorldRectangle();
        return {m_chance.Choose(0, rc.right - rc.left - 1), m_chance.Choose(0, rc.bottom - rc.top - 1)};
    }

    void WaitForRun() const
    {
        WaitUntil("a run", c_patience,
                  [&] { return m_user.GetButtonText() == L"Stop" && IsWindowEnabled(m_user.GetButton()) != FALSE; });
    }

    // Waits until the status line has been drawn again, because its glyphs take memory.
    void ComeToRestInRun() const
    {
        m_user.RestMouse();
        m_user.WaitForStatistics(0);
        WaitForRun();
    }

    // Plays a part of something in each leg, and expects of each resource that it did not grow in every leg.
    template<class T>
    void ExpectNoLeak(const std::string& sWhat, T playLeg)
    {
        m_leaks.Begin();
        for (int iLeg = 1; iLeg <= c_iLegs; ++iLeg)
        {
            playLeg();
            m_leaks.EndLeg("leg " + std::to_string(iLeg) + " of " + sWhat);
        }
        m_leaks.ExpectALegWithoutGrowth();
    }

    // Starts and stops the run as often as the plan says.
    void PlayRounds(const std::string& sWhat)
    {
        const auto playRound = [&] {
            m_user.PressStart();
            Sleep(static_cast<DWORD>(m_chance.Choose(0, m_plan.longestPauseMilliseconds)));
            m_user.PressStop();
        };
        for (int iRound = 0; iRound < c_iWarmUpRounds; ++iRound)
        {
            playRound();
        }
        ExpectNoLeak(std::to_string(m_plan.startStopRounds) + " " + sWhat, [&] {
            for (int iRound = 0; iRound < m_plan.startStopRounds / c_iLegs; ++iRound)
            {
                playRound();
            }
        });
    }

    void ToggleFullScreen()
    {
        const bool bBefore = IsFullScreen();
        constexpr int c_iWays = 3;
        const int iWay = m_chance.Choose(1, c_iWays);
        const RECT rc = m_user.GetWorldRectangle();
        if (iWay == 1)
        {
            m_user.PressKeyInWindow(VK_F11);
        }
        else if (iWay == 2 && bBefore)
        {
            m_user.PressKeyInWindow(VK_ESCAPE);
        }
        else
        {
            ClickRight({(rc.left + rc.right) / 2, (rc.top + rc.bottom) / 2});
        }
        WaitUntil("the change of the screen", c_patience, [&] { return IsFullScreen() != bBefore; });
        // Both directions restart the world in its new size.
        WaitForRun();
    }

    const CSoakPlan m_plan = ReadSoakPlan();
    CLeakWatch m_leaks;
    CChance m_chance;
};
} // namespace

// Every start creates a worker, drawing resources and a world; every stop releases them.
TEST_F(Soak, RoundsOfStartAndStopLeakNothing)
{
    PlayRounds("rounds of start and stop");
    ExpectCleanClose();
}

// Here every start creates helpers too, and every stop ends them.
TEST_F(Soak, RoundsOfALargeWorldLeakNothing)
{
    CPanelUser(m_user).Enter(EnumPanelRow::TotalAtoms, L"3000");
    const int threads = CountThreads(m_program.GetProcessId());
    m_user.PressStart();
    const int newThreads = CountUsableProcessors() > 1 ? 2 : 1; // at least: a worker and a helper
    WaitUntil("the helpers", c_patience,
              [&] { return CountThreads(m_program.GetProcessId()) >= threads + newThreads; });
    m_user.PressStop();
    PlayRounds("rounds of start and stop with 3,000 atoms");
    ExpectCleanClose();
}

// A click stops the run and starts another at its point. Some clicks come faster and arrive during the stop, which
// still answers messages while it waits.
TEST_F(Soak, ClicksInTheWorldLeaveOneWorkerAndLeakNothing)
{
    constexpr int c_iPatientIn = 2; // one of this many clicks is followed by a wait
    const auto clickOnce = [&] {
        m_user.ClickWorld(ChoosePointInWorld());
        if (m_chance.Choose(1, c_iPatientIn) == 1)
        {
            WaitForRun();
        }
    };
    m_user.PressStart();
    for (int iClick = 0; iClick < c_iWarmUpRounds; ++iClick)
    {
        clickOnce();
    }
    ComeToRestInRun();
    ExpectNoLeak(std::to_string(m_plan.clicks) + " clicks in the world", [&] {
        for (int iClick = 0; iClick < m_plan.clicks / c_iLegs; ++iClick)
        {
            clickOnce();
        }
        ComeToRestInRun();
    });
    const int iThreadsOfRun = m_program.Count().threads;
    m_user.PressStop();
    EXPECT_LT(m_program.Count().threads, iThreadsOfRun);
    ExpectCleanClose();
}

TEST_F(Soak, FullScreenTogglesLeakNothing)
{
    constexpr int c_iWarmUpToggles = 2 * c_iWarmUpRounds;
    m_user.PressStart();
    for (int iToggle = 0; iToggle < c_iWarmUpToggles; ++iToggle)
    {
        ToggleFullScreen();
    }
    ComeToRestInRun();
    ExpectNoLeak(std::to_string(m_plan.fullScreenToggles) + " full-screen toggles", [&] {
        // Every leg ends in the window: in full screen other objects are there.
        for (int iPair = 0; iPair < m_plan.fullScreenToggles / (2 * c_iLegs); ++iPair)
        {
            ToggleFullScreen();
            ToggleFullScreen();
        }
        ComeToRestInRun();
    });
    ExpectCleanClose();
}

TEST_F(Soak, AStormOfRandomInputLeavesTheProgramAliveAndLeaksNothing)
{
    CStorm storm(m_program, m_user, m_plan.seed);
    constexpr int c_iWarmUpActions = 40;
    storm.VisitEverything();
    storm.ActEachOnce();
    for (int i = 0; i < c_iWarmUpActions; ++i)
    {
        storm.Act();
    }
    storm.Settle();
    m_leaks.Begin();

    // Under Wine, each themed control leaks a small block when a system dialog closes, even in a program that only
    // opens the dialog: 15 blocks of 24 bytes for the colour dialog.
    constexpr std::uint64_t c_uLostPerDialog = std::uint64_t{15} * 24;
    for (int iLeg = 1; iLeg <= c_iLegs; ++iLeg)
    {
        const int iDialogsBefore = storm.GetTally().at("colour dialog");
        m_user.ClickWorldMiddle();
        const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(m_plan.storm) / c_iLegs;
        while (std::chrono::steady_clock::now() < end)
        {
            storm.Act();
        }
        storm.Settle();
        const int iDialogs = storm.GetTally().at("colour dialog") - iDialogsBefore;
        m_leaks.EndLeg("leg " + std::to_string(iLeg) + " of random input",
                       c_uLostPerDialog * static_cast<std::uint64_t>(iDialogs));
    }

    for (const auto& [sAction, iTimes] : storm.GetTally())
    {
        std::cout << "  " << iTimes << " x " << sAction << "\n";
    }
    std::cout << "  " << storm.GetCountWhileRunning() << " of them during a simulation\n";
    constexpr std::int64_t c_iLostPerLeg = 1024; // by the few other dialogs that random keys and clicks open
    m_leaks.ExpectALegWithoutGrowth(c_iLostPerLeg);
    EXPECT_GT(storm.GetCountWhileRunning(), 0);
    ASSERT_TRUE(m_program.IsRunning());
    ExpectCleanClose();
}

TEST_F(Soak, ALongRunOfAHundredThousandAtomsLeaksNothing)
{
    const CPanelUser panel(m_user);
    panel.Enter(EnumPanelRow::Width, L"9999");
    panel.Enter(EnumPanelRow::Height, L"9999");
    panel.Enter(EnumPanelRow::TotalAtoms, L"100000");
    m_user.PressStart();
    m_user.RestMouse();
    CStatistics line;
    constexpr int c_iWarmUpLines = 3;
    for (int iLine = 0; iLine < c_iWarmUpLines; ++iLine)
    {
        line = m_user.WaitForStatistics(line.iterations);
    }
    const std::uint64_t uFirst = line.iterations;
    ExpectNoLeak(std::to_string(m_plan.run.count()) + " s with 100,000 atoms", [&] {
        const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(m_plan.run) / c_iLegs;
        while (std::chrono::steady_clock::now() < end)
        {
            line = m_user.WaitForStatistics(line.iterations);
        }
    });
    std::cout << line.iterations - uFirst
              << " iterations\n  last line: " << std::string(line.line.begin(), line.line.end()) << "\n";
    m_user.PressStop();
    ExpectCleanClose();
}
