#include "simulation/CWavefront.h"
#include "simulation/GridGeometry.h"
#include "simulation/SimulationConstants.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <thread>

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

TEST(Wavefront, HandsOutEachRowOnceAndTheirCellsAsTheRuleAllows)
{
    CWavefront wavefront;
    wavefront.Restart(c_Rule);
    EXPECT_EQ(wavefront.TakeRow(), 0);
    EXPECT_EQ(wavefront.TakeRow(), 1);
    EXPECT_EQ(wavefront.AwaitCell(0, 0), 4);
    wavefront.FinishCell(0, 0);
    wavefront.FinishCell(0, 1);
    EXPECT_EQ(wavefront.AwaitCell(1, 0), 1);
    wavefront.FinishCell(0, 2);
    EXPECT_EQ(wavefront.AwaitCell(1, 1), 2);
    wavefront.FinishCell(0, 3);
    EXPECT_EQ(wavefront.AwaitCell(1, 2), 4);
    wavefront.AwaitDraw(0);
    wavefront.AwaitDraw(1);
    EXPECT_EQ(wavefront.TakeRow(), 2);
    EXPECT_GE(wavefront.TakeRow(), c_Rule.rows);
}

// The threads sleep at each step, because the one in the row above starts only when they all do.
TEST(Wavefront, SleepersGoOnWhenTheRowAboveIsFarEnough)
{
    for (int round = 0; round < 20; ++round)
    {
        CWavefront wavefront;
        wavefront.Restart(c_Rule);
        int reached = 0;
        const std::jthread row1([&] {
            for (int column = 0; column < c_Rule.columns; ++column)
            {
                wavefront.AwaitCell(1, column);
                wavefront.FinishCell(1, column);
            }
        });
        {
            const std::jthread row2([&] {
                wavefront.AwaitDraw(2);
                reached = 1;
            });
            for (int column = 0; column < c_Rule.columns; ++column)
            {
                wavefront.FinishCell(0, column);
                std::this_thread::yield();
            }
        }
        EXPECT_EQ(reached, 1);
    }
}

TEST(Wavefront, AnAbortEndsEveryWaitWithItsException)
{
    CWavefront wavefront;
    wavefront.Restart(c_Rule);
    {
        const std::jthread waiting([&] { EXPECT_THROW(wavefront.AwaitCell(1, 0), std::domain_error); });
        const std::jthread drawing([&] { EXPECT_THROW(wavefront.AwaitDraw(2), std::domain_error); });
        wavefront.Abort(std::make_exception_ptr(std::domain_error("first")));
        wavefront.Abort(std::make_exception_ptr(std::out_of_range("second")));
    }
    EXPECT_THROW(wavefront.TakeRow(), std::domain_error);
    wavefront.Restart(c_Rule);
    EXPECT_EQ(wavefront.TakeRow(), 0);
}

} // namespace
