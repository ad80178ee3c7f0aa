#include "app/CStopGate.h"

#include <gtest/gtest.h>

TEST(StopGate, DefersNothingWithoutAStopInProgress)
{
    CStopGate gate;

    EXPECT_FALSE(gate.Defer_Close());
    EXPECT_FALSE(gate.Defer_FullScreen(EnumFullScreenRequest::Toggle));
    EXPECT_FALSE(gate.Defer_Click({1, 2}));

    const CStopGate::CRequests requests = gate.TakeRequests(false);
    EXPECT_FALSE(requests.close);
    EXPECT_EQ(requests.fullScreen, EnumFullScreenRequest::None);
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
        EXPECT_TRUE(gate.Defer_FullScreen(EnumFullScreenRequest::Toggle));
    }
    EXPECT_FALSE(gate.IsStopping());

    const CStopGate::CRequests requests = gate.TakeRequests(false);
    EXPECT_TRUE(requests.close);
    EXPECT_EQ(requests.fullScreen, EnumFullScreenRequest::None);
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
    const CStopGate::CRequests requests = gate.TakeRequests(false);
    ASSERT_TRUE(requests.click.has_value());
    EXPECT_EQ(requests.click->x, -3);
    EXPECT_EQ(requests.click->y, 40);
}

TEST(StopGate, ASecondToggleUndoesTheFirst)
{
    CStopGate gate;
    {
        const CStopGate::CStopping stopping(gate);
        gate.Defer_FullScreen(EnumFullScreenRequest::Toggle);
        gate.Defer_FullScreen(EnumFullScreenRequest::Toggle);
        gate.Defer_Click({7, 8});
    }
    const CStopGate::CRequests requests = gate.TakeRequests(false);
    EXPECT_EQ(requests.fullScreen, EnumFullScreenRequest::None);
    EXPECT_TRUE(requests.click.has_value());
}

TEST(StopGate, ATakenRequestIsForgotten)
{
    CStopGate gate;
    {
        const CStopGate::CStopping stopping(gate);
        gate.Defer_FullScreen(EnumFullScreenRequest::Toggle);
    }
    EXPECT_EQ(gate.TakeRequests(false).fullScreen, EnumFullScreenRequest::Toggle);
    EXPECT_EQ(gate.TakeRequests(false).fullScreen, EnumFullScreenRequest::None);
}

TEST(StopGate, RequestsDuringAChangeWaitForItsEnd)
{
    CStopGate gate;
    {
        const CStopGate::CChanging changing(gate);
        {
            const CStopGate::CStopping stopping(gate);
            EXPECT_TRUE(gate.Defer_FullScreen(EnumFullScreenRequest::Toggle));
        }
        EXPECT_FALSE(gate.IsStopping());
        EXPECT_EQ(gate.TakeRequests(false).fullScreen, EnumFullScreenRequest::None)
            << "the stop is over, but not the change";
        EXPECT_TRUE(gate.Defer_Click({1, 2}));
        EXPECT_TRUE(gate.Defer_Close());
    }
    EXPECT_FALSE(gate.Defer_Click({3, 4}));
    EXPECT_TRUE(gate.TakeRequests(false).close);
}

TEST(StopGate, ARequestIsJudgedByTheStateThatTheChangeHasLeft)
{
    for (const bool bFullScreen : {false, true})
    {
        CStopGate gate;
        {
            const CStopGate::CChanging changing(gate);
            gate.Defer_FullScreen(EnumFullScreenRequest::Leave);
            gate.Defer_FullScreen(EnumFullScreenRequest::Leave);
            gate.Defer_Click({1, 2});
        }
        const CStopGate::CRequests requests = gate.TakeRequests(bFullScreen);
        EXPECT_EQ(requests.fullScreen, bFullScreen ? EnumFullScreenRequest::Leave : EnumFullScreenRequest::None);
        EXPECT_EQ(requests.click.has_value(), !bFullScreen) << "an Escape without effect drops no click";
    }
}
