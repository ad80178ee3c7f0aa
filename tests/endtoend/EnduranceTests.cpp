#include "tests/endtoend/CEndToEndTest.h"
#include "tests/endtoend/WaitUntil.h"

#include <chrono>

namespace
{
constexpr auto c_patience = std::chrono::milliseconds(20000);

using Endurance = CEndToEndTest;
} // namespace

// Every start makes a worker, drawing resources and a world, and every stop gives them back. After a few rounds nothing
// is made for the first time any more; from there on the counts may not grow with the rounds.
TEST_F(Endurance, TwoHundredRoundsOfStartClickAndStopLeaveNoThreadHandleOrDrawingObjectBehind)
{
    constexpr int c_iWarmUpRounds = 10;
    constexpr int c_iRounds = 200;
    // The system keeps a few objects of its own that come and go; a leak of one per round would be 200.
    constexpr int c_iSlack = 10;
    const auto playRound = [&](int iRound) {
        m_user.PressStart();
        if (iRound % 2 == 0)
        {
            m_user.ClickWorld({50 + iRound, 60 + iRound});
            WaitUntil("the click to restart the run", c_patience,
                      [&] { return m_user.GetButtonText() == L"Stop" && IsWindowEnabled(m_user.GetButton()); });
        }
        m_user.PressStop();
    };
    for (int iRound = 0; iRound < c_iWarmUpRounds; ++iRound)
    {
        playRound(iRound);
    }
    const CProcessCounts before = m_program.Count();
    for (int iRound = 0; iRound < c_iRounds; ++iRound)
    {
        playRound(iRound);
    }
    const CProcessCounts after = m_program.Count();
    EXPECT_LE(after.threads, before.threads);
    EXPECT_LE(after.handles, before.handles + c_iSlack);
    EXPECT_LE(after.gdiObjects, before.gdiObjects + c_iSlack);
    ExpectCleanClose();
}

// Clicks that arrive faster than a stop and a start take: some fall into the stop, which pumps messages while it waits.
TEST_F(Endurance, AStormOfClicksIntoTheWorldLeavesOneWorker)
{
    constexpr int c_iClicks = 100;
    m_user.PressStart();
    m_user.WaitForStatistics(0);
    const int iThreads = m_program.Count().threads;
    for (int iClick = 0; iClick < c_iClicks; ++iClick)
    {
        m_user.ClickWorld({100 + iClick, 100});
    }
    m_user.RestMouse();
    m_user.WaitForStatistics(0);
    EXPECT_EQ(m_user.GetButtonText(), L"Stop");
    EXPECT_LE(m_program.Count().threads, iThreads);
    m_user.PressStop();
    EXPECT_LT(m_program.Count().threads, iThreads);
    ExpectCleanClose();
}

TEST_F(Endurance, AClickIntoTheWorldAndACloseRightAfterItEndTheProgram)
{
    m_user.PressStart();
    m_user.ClickWorldMiddle();
    ExpectCleanClose();
}

TEST(EnduranceOfTheProcess, TenTimesInARowItStartsRunsAndIsClosedWhileItRuns)
{
    constexpr int c_iStarts = 10;
    for (int iStart = 0; iStart < c_iStarts; ++iStart)
    {
        const CProgramCopy copy(BuiltProgram());
        const CDrivenProgram program(copy.GetPath());
        const CKinetariumUser user(program);
        user.PressStart();
        if (iStart % 2 == 0)
        {
            user.ClickWorldMiddle();
        }
        user.Close();
        ASSERT_EQ(program.WaitForExit(c_patience), 0U) << "start " << iStart;
    }
}
