#include "app/CStopGate.h"

#include <gtest/gtest.h>

TEST(StopGate, DefersNothingWithoutAStopInProgress)
{
    CStopGate gate;

    EXPECT_FALSE(gate.Defer_Close());
    EXPECT_FALSE(gate.Defer_ToggleFullScreen());
    EXPECT_FALSE(gate.Defer_Click({1, 2}));

    const CStopGate::CRequests requests = gate.TakeRequests();
    EXPECT_FALSE(requests.close);
    EXPECT_FALSE(requests.toggleFullScreen);
    EXPECT_FALSE(requests.click.has_value());
}

TEST(StopGate, ACloseDuringAStopIsNeverLost)
{
    CStopGate gate;
    {
        const CStopGate::CStopping stopping(gate);
        EXPECT_TRUE(gate.IsStopping());
        EXPECT_TRUE(gate.Defer_Close());
        EXPECT_TRUE(gate.Defer_Click({5, 6}));
        EXPECT_TRUE(gate.Defer_ToggleFullScreen());
    }
    EXPECT_FALSE(gate.IsStopping());

    const CStopGate::CRequests requests = gate.TakeRequests();
    EXPECT_TRUE(requests.close);
    EXPECT_FALSE(requests.toggleFullScreen);
    EXPECT_FALSE(requests.click.has_value());
}

TEST(StopGate, TheLastOfSeveralClicksCounts)
{
    CStopGate gate;
    {
        const CStopGate::CStopping stopping(gate);
        gate.Defer_Click({1, 1});
        gate.Defer_Click({-3, 40});
    }
    const CStopGate::CRequests requests = gate.TakeRequests();
    ASSERT_TRUE(requests.click.has_value());
    EXPECT_EQ(requests.click->x, -3);
    EXPECT_EQ(requests.click->y, 40);
}

TEST(StopGate, ASecondToggleUndoesTheFirst)
{
    CStopGate gate;
    {
        const CStopGate::CStopping stopping(gate);
        gate.Defer_ToggleFullScreen();
        gate.Defer_ToggleFullScreen();
        gate.Defer_Click({7, 8});
    }
    const CStopGate::CRequests requests = gate.TakeRequests();
    EXPECT_FALSE(requests.toggleFullScreen);
    EXPECT_TRUE(requests.click.has_value());
}

TEST(StopGate, ATakenRequestIsForgotten)
{
    CStopGate gate;
    {
        const CStopGate::CStopping stopping(gate);
        gate.Defer_ToggleFullScreen();
    }
    EXPECT_TRUE(gate.TakeRequests().toggleFullScreen);
    EXPECT_FALSE(gate.TakeRequests().toggleFullScreen);
}

TEST(StopGate, RequestsDuringAChangeWaitForItsEnd)
{
    CStopGate gate;
    {
        const CStopGate::CChanging changing(gate);
        {
            const CStopGate::CStopping stopping(gate);
            EXPECT_TRUE(gate.Defer_ToggleFullScreen());
        }
        EXPECT_FALSE(gate.IsStopping());
        EXPECT_FALSE(gate.TakeRequests().toggleFullScreen) << "the stop is over, but not the change";
        EXPECT_TRUE(gate.Defer_Click({1, 2}));
        EXPECT_TRUE(gate.Defer_Close());
    }
    EXPECT_FALSE(gate.Defer_Click({3, 4}));
    EXPECT_TRUE(gate.TakeRequests().close);
}
