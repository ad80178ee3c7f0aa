#include "simulation/CWavefront.h"
#include "simulation/GridGeometry.h"
#include "simulation/SimulationConstants.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstddef>
#include <random>
#include <stdexcept>
#include <thread>
#include <vector>

namespace
{

constexpr CWavefrontRule c_Rule = {3, 4, 1};

CWavefrontRule GetRule(int width, int height, int largestRadius)
{
    return CWavefrontRule::Get(CGridGeometry::ForWorld({width, height}), largestRadius);
}

TEST(WavefrontRule, ACellNeedsTheOneToTheRightAboveIt)
{
    EXPECT_EQ(c_Rule.GetNeeded(0), 2);
    EXPECT_EQ(c_Rule.GetNeeded(2), 4);
    EXPECT_EQ(c_Rule.GetNeeded(3), 4);
    EXPECT_EQ(c_Rule.GetRunnable(0), 0);
    EXPECT_EQ(c_Rule.GetRunnable(1), 0);
    EXPECT_EQ(c_Rule.GetRunnable(2), 1);
    EXPECT_EQ(c_Rule.GetRunnable(3), 2);
    EXPECT_EQ(c_Rule.GetRunnable(4), 4);
    EXPECT_EQ(c_Rule.GetNeededToDraw(), 4);
}

TEST(WavefrontRule, AtomsOfEveryAllowedRadiusAreSmallerThanACellOfAGridWithThreeColumns)
{
    for (int length = 201; length <= c_iMaxWorldLength; ++length)
    {
        ASSERT_EQ(GetRule(length, length, c_uMaxRadius).lag, 1) << length;
    }
}

TEST(WavefrontRule, LargerAtomsMakeARowStayTwoCellsBehind)
{
    EXPECT_EQ(GetRule(201, 201, 34).lag, 2); // cells of 67
    EXPECT_EQ(GetRule(200, 1000, 49).lag, 1);
    EXPECT_EQ(GetRule(200, 1000, 50).lag, 2);
    EXPECT_EQ(GetRule(1000, 200, 50).lag, 2);
    EXPECT_EQ(GetRule(200, 200, 255).lag, 1); // two columns always touch
}

TEST(WavefrontRule, TheNumberOfRowsAtWorkIsLimitedByRowsAndColumns)
{
    EXPECT_EQ((CWavefrontRule{10, 10, 1}.GetMostRowsAtWork()), 5);
    EXPECT_EQ((CWavefrontRule{10, 9, 1}.GetMostRowsAtWork()), 5);
    EXPECT_EQ((CWavefrontRule{3, 10, 1}.GetMostRowsAtWork()), 3);
    EXPECT_EQ((CWavefrontRule{10, 1, 1}.GetMostRowsAtWork()), 1);
    EXPECT_EQ((CWavefrontRule{10, 10, 2}.GetMostRowsAtWork()), 4);
    EXPECT_EQ((CWavefrontRule{10, 3, 2}.GetMostRowsAtWork()), 1);
}

// Takes cells for a thread that must not have to wait.
CCellRun Take(CWavefront& wavefront, CCellRun run = {})
{
    EXPECT_TRUE(wavefront.TakeCells(run));
    return run;
}

void Finish(CWavefront& wavefront, const CCellRun& run)
{
    for (int column = run.first; column < run.end; ++column)
    {
        wavefront.FinishCell(run.row, column);
    }
}

TEST(Wavefront, HandsOutTheCellsOfARowAsTheRuleAllows)
{
    CWavefront wavefront;
    wavefront.Restart(c_Rule);
    CCellRun upper = Take(wavefront);
    EXPECT_EQ(upper, (CCellRun{0, 0, 4}));
    wavefront.FinishCell(0, 0);
    wavefront.FinishCell(0, 1);
    CCellRun lower = Take(wavefront);
    EXPECT_EQ(lower, (CCellRun{1, 0, 1}));
    wavefront.FinishCell(0, 2);
    Finish(wavefront, lower);
    lower = Take(wavefront, lower);
    EXPECT_EQ(lower, (CCellRun{1, 1, 2}));
    wavefront.FinishCell(0, 3);
    Finish(wavefront, lower);
    lower = Take(wavefront, lower);
    EXPECT_EQ(lower, (CCellRun{1, 2, 4}));
    wavefront.AwaitDraw(0);
    wavefront.AwaitDraw(1);
    Finish(wavefront, lower);
    upper = Take(wavefront, upper);
    EXPECT_EQ(upper, (CCellRun{2, 0, 4}));
    Finish(wavefront, upper);
    EXPECT_FALSE(wavefront.TakeCells(upper));
    EXPECT_FALSE(wavefront.TakeCells(lower));
}

TEST(Wavefront, AThreadThatWouldHaveToWaitGoesOnInAnotherRow)
{
    CWavefront wavefront;
    wavefront.Restart({4, 8, 1});
    const CCellRun slow = Take(wavefront);
    for (int column = 0; column < 5; ++column)
    {
        wavefront.FinishCell(slow.row, column);
    }
    CCellRun fast = Take(wavefront);
    EXPECT_EQ(fast, (CCellRun{1, 0, 4}));
    Finish(wavefront, fast);
    fast = Take(wavefront, fast);
    EXPECT_EQ(fast, (CCellRun{2, 0, 3}));
    Finish(wavefront, fast);
    fast = Take(wavefront, fast);
    EXPECT_EQ(fast, (CCellRun{3, 0, 2}));
    Finish(wavefront, fast);

    // Now there is more to do in each of these rows. The uppermost comes first, and whoever is free takes it.
    wavefront.FinishCell(slow.row, 5);
    EXPECT_EQ(Take(wavefront), (CCellRun{1, 4, 5}));
    wavefront.FinishCell(1, 4);
    EXPECT_EQ(Take(wavefront, fast), (CCellRun{2, 3, 4}));
}

TEST(Wavefront, ACompleteRowIsNotTakenAgain)
{
    CWavefront wavefront;
    wavefront.Restart(c_Rule);
    CCellRun run = Take(wavefront);
    for (int row = 0; row < c_Rule.rows; ++row)
    {
        EXPECT_EQ(run, (CCellRun{row, 0, c_Rule.columns}));
        Finish(wavefront, run);
        EXPECT_EQ(wavefront.TakeCells(run), row + 1 < c_Rule.rows);
    }
}

// The pauses are longer than a thread spins, so the threads sleep.
TEST(Wavefront, SleepersGoOnWhenTheRowAboveIsFarEnough)
{
    for (int round = 0; round < 20; ++round)
    {
        CWavefront wavefront;
        wavefront.Restart(c_Rule);
        const CCellRun first = Take(wavefront);
        bool bDrawn = false;
        {
            const std::jthread follower([&] {
                for (CCellRun run; wavefront.TakeCells(run);)
                {
                    Finish(wavefront, run);
                }
            });
            const std::jthread drawer([&] {
                wavefront.AwaitDraw(2);
                bDrawn = true;
            });
            for (int column = first.first; column < first.end; ++column)
            {
                wavefront.FinishCell(first.row, column);
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
            }
        }
        EXPECT_TRUE(bDrawn);
    }
}

TEST(Wavefront, AnAbortEndsEveryWaitWithItsException)
{
    CWavefront wavefront;
    wavefront.Restart(c_Rule);
    CCellRun first = Take(wavefront);
    {
        const std::jthread waiting([&] {
            CCellRun run;
            EXPECT_THROW(wavefront.TakeCells(run), std::domain_error);
        });
        const std::jthread drawing([&] { EXPECT_THROW(wavefront.AwaitDraw(2), std::domain_error); });
        wavefront.Abort(std::make_exception_ptr(std::domain_error("first")));
        wavefront.Abort(std::make_exception_ptr(std::out_of_range("second")));
    }
    EXPECT_THROW(wavefront.TakeCells(first), std::domain_error);
    wavefront.Restart(c_Rule);
    EXPECT_EQ(Take(wavefront), (CCellRun{0, 0, 4}));
}

// Notes which cells are handled, and whether those are complete that each one needs.
class CHandledCells
{
public:
    explicit CHandledCells(const CWavefrontRule& rule)
        : m_Rule(rule), m_Done(static_cast<std::size_t>(rule.rows)), m_InRow(static_cast<std::size_t>(rule.rows))
    {
    }

    void Handle(int row, int column)
    {
        std::atomic<int>& inRow = m_InRow[static_cast<std::size_t>(row)];
        std::atomic<int>& done = m_Done[static_cast<std::size_t>(row)];
        const bool bAlone = inRow++ == 0;
        const bool bNext = done == column;
        const bool bAllowed = row == 0 || m_Done[static_cast<std::size_t>(row) - 1] >= m_Rule.GetNeeded(column);
        m_iWrong += bAlone && bNext && bAllowed ? 0 : 1;
        ++done;
        --inRow;
    }

    // The cell at work in that row draws.
    void Draw(int row)
    {
        const bool bAllowed = row == 0 || m_Done[static_cast<std::size_t>(row) - 1] == m_Rule.columns;
        m_iWrong += bAllowed ? 0 : 1;
    }

    int GetWrong() const { return m_iWrong; }

    bool IsComplete() const
    {
        return std::all_of(m_Done.begin(), m_Done.end(), [this](const auto& done) { return done == m_Rule.columns; });
    }

private:
    CWavefrontRule m_Rule;
    std::vector<std::atomic<int>> m_Done; // cells of each row
    std::vector<std::atomic<int>> m_InRow;
    std::atomic<int> m_iWrong{0};
};

// Handles cells at a speed that changes with every cell; some of the cells draw.
void HandleCells(CWavefront& wavefront, CHandledCells& cells, unsigned uSeed)
{
    std::minstd_rand draw(uSeed);
    CCellRun run;
    while (wavefront.TakeCells(run))
    {
        for (int column = run.first; column < run.end; ++column)
        {
            for (unsigned yields = draw() % 64 == 0 ? 20 : 0; yields > 0; --yields)
            {
                std::this_thread::yield();
            }
            if (draw() % 16 == 0)
            {
                wavefront.AwaitDraw(run.row);
                cells.Draw(run.row);
            }
            cells.Handle(run.row, column);
            wavefront.FinishCell(run.row, column);
        }
    }
}

class WavefrontThreads : public testing::TestWithParam<int>
{
};

TEST_P(WavefrontThreads, HandleEachCellOnceAndOnlyAfterThoseThatItNeeds)
{
    for (const CWavefrontRule& rule :
         {CWavefrontRule{40, 60, 1}, {40, 60, 2}, {100, 3, 1}, {3, 200, 1}, {60, 1, 1}, {50, 2, 2}, {1, 1, 1}})
    {
        CWavefront wavefront;
        for (unsigned uRound = 0; uRound < 10; ++uRound)
        {
            wavefront.Restart(rule);
            CHandledCells cells(rule);
            {
                std::vector<std::jthread> threads;
                for (int thread = 0; thread < GetParam(); ++thread)
                {
                    threads.emplace_back([&wavefront, &cells, uSeed = 100 * uRound + static_cast<unsigned>(thread)] {
                        HandleCells(wavefront, cells, uSeed);
                    });
                }
            }
            EXPECT_EQ(cells.GetWrong(), 0) << rule.rows << " rows";
            EXPECT_TRUE(cells.IsComplete()) << rule.rows << " rows";
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Wavefront, WavefrontThreads, testing::Values(1, 2, 3, 8));

} // namespace
