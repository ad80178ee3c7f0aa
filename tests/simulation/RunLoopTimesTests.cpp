#include "classes/core/CProfile.h"
#include "simulation/RunStatistics.h"
#include "tests/simulation/CRunLoopTest.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

// The waits and the statistics lines of the run loop, with times that the tests give it. All times are microseconds.
namespace
{

using RunLoopTimes = CRunLoopTest;
using Times = std::vector<std::int64_t>;

constexpr std::int64_t c_llPass = 16'666; // a pass with its wait

// The line of the plain world after its latest iteration.
std::wstring MakeLine(const CReferenceWorld& reference, CRunStatistics statistics)
{
    statistics.velocities = {reference.GetMin(), reference.GetMax(), reference.GetTot(), reference.GetAvg()};
    statistics.atomCount = static_cast<std::int32_t>(reference.GetAtoms().size());
    return FormatStatisticsLine(statistics).Get();
}

TEST_F(RunLoopTimes, APassWaitsForTheRestOfThePeriod)
{
    RunFrames({1000, 5000, 16'000, 16'666, 16'667, 20'000, 0});
    EXPECT_EQ(m_Stage.m_Waits, (Times{15'666, 11'666, 666, 0, 0, 0, 0}));
}

TEST_F(RunLoopTimes, TheIterationBelongsToThePass)
{
    m_Stage.m_llIterationTime = 4000;
    RunFrames({1000, 0, 12'000});
    EXPECT_EQ(m_Stage.m_Waits, (Times{11'666, 12'666, 666}));
}

TEST_F(RunLoopTimes, AStopWhileAFrameIsDrawnNeitherWaitsNorShowsALine)
{
    m_Stage.m_OnFrame = [this](int) {
        m_Stage.m_llNow += 5'000'000;
        m_bRunning = false;
    };
    Run();
    m_bRunning = true;
    m_Stage.m_OnFrame = [this](int) {
        m_Stage.m_llNow += 1000;
        m_bRunning = false;
    };
    Run();
    EXPECT_EQ(m_Stage.m_iFrames, 2);
    EXPECT_EQ(m_Stage.m_Waits, Times{});
    EXPECT_TRUE(m_Stage.m_Lines.empty());
}

// Frames 2 and 5 come 1,000 whole milliseconds after the last line, one too few. The time that the status bar takes for
// a line does not count for the next one.
TEST_F(RunLoopTimes, ALineComesAfterMoreThanASecondSinceTheLast)
{
    m_Stage.m_OnLine = [this] { m_Stage.m_llNow += 700'000; };
    RunFrames({1'000'999, 0, 17'000, 1'001'000, 1'000'000, 17'000});
    EXPECT_EQ(m_Stage.m_LineFrames, (std::vector<int>{3, 4, 6}));
}

TEST_F(RunLoopTimes, ALineTellsOfThePassesSinceTheLast)
{
    constexpr int c_iPasses = 61; // the fewest that take more than a second
    static_assert(c_iPasses * c_llPass > 1'001'000 && (c_iPasses - 1) * c_llPass < 1'001'000);
    Times times(c_iPasses, 10'000);
    times.insert(times.end(), c_iPasses, 12'000);
    RunFrames(times);

    CReferenceWorld reference = MakeReference(c_SceneDefault);
    std::vector<std::wstring> lines;
    for (const float passMs : {10.0F, 12.0F})
    {
        CRunStatistics statistics;
        statistics.totalIterations = (lines.size() + 1) * c_iPasses;
        statistics.iterationsSinceReport = c_iPasses;
        statistics.timeSumMs = passMs * c_iPasses;
        for (int pass = 0; pass < c_iPasses; ++pass)
        {
            statistics.collisionsSinceReport += reference.Advance();
        }
        EXPECT_GT(statistics.collisionsSinceReport, 0U);
        lines.push_back(MakeLine(reference, statistics));
    }
    EXPECT_EQ(m_Stage.m_Lines, lines);
    EXPECT_EQ(m_Stage.m_LineFrames, (std::vector<int>{c_iPasses, 2 * c_iPasses}));
    EXPECT_TRUE(lines[0].starts_with(L"Iter = 61   10.00 ms = 100.00 FPS     velocity: min = ")) << lines[0].c_str();
    EXPECT_TRUE(lines[1].starts_with(L"Iter = 122   12.00 ms = 83.33 FPS     velocity: min = ")) << lines[1].c_str();
}

// Sum and average of the times are single: in double, this rate would be another.
TEST_F(RunLoopTimes, TimesAreSummedUpInSinglePrecision)
{
    RunFrames(Times(61, 3));
    ASSERT_EQ(m_Stage.m_Lines.size(), 1U);
    EXPECT_TRUE(m_Stage.m_Lines[0].starts_with(L"Iter = 61   0.00 ms = 333333.18 FPS ")) << m_Stage.m_Lines[0].c_str();
}

TEST_F(RunLoopTimes, ALineIsInTheLogBeforeItIsShown)
{
    std::wstring log;
    std::wstring logAtLine;
    m_Stage.m_OnFrame = [this](int) { m_Stage.m_llNow += 2'000'000; };
    m_Stage.m_OnLine = [&] {
        logAtLine = log;
        m_bRunning = false;
    };
    Run(&log);
    ASSERT_EQ(m_Stage.m_Lines.size(), 1U);
    EXPECT_EQ(logAtLine, m_Stage.m_Lines[0] + L"\n");
}

TEST_F(RunLoopTimes, ARunIsOneCallInTheProfile)
{
    CProfile::Reset();
    RunFrames({1000, 1000});
    const std::vector<CProfileRow> rows = CProfile::GetTable();
    const auto isRunLoop = [](const CProfileRow& row) { return row.sText.find("RunLoop(") != std::string::npos; };
    const auto row = std::find_if(rows.begin(), rows.end(), isRunLoop);
    ASSERT_NE(row, rows.end());
    EXPECT_EQ(row->uCalls, 1U);
}

} // namespace
