#include "tests/simulation/CAllocationWatch.h"
#include "tests/simulation/CRunLoopTest.h"

#include <stdexcept>
#include <string>

namespace
{

using RunLoopTest = CRunLoopTest;

TEST_F(RunLoopTest, WithoutAtomsTheEventIsResetAndSetAndNothingIsDrawn)
{
    m_World.atoms.Allocate(0);
    Run();
    EXPECT_EQ(m_Stage.m_sLog, "rs");
    EXPECT_EQ(m_Stage.m_iFrames, 0);
}

TEST_F(RunLoopTest, AClearedFlagEndsTheLoopBeforeTheFirstIteration)
{
    m_bRunning = false;
    Run();
    EXPECT_EQ(m_Stage.m_sLog, "rs");
    EXPECT_EQ(m_Stage.m_iFrames, 0);
    EXPECT_TRUE(IsSameWorld(m_World, MakeReference(c_SceneDefault)));
}

TEST_F(RunLoopTest, TheEventIsResetBeforeTheFirstFrameAndSetAfterTheLast)
{
    m_Stage.m_OnFrame = [this](int frame) {
        EXPECT_EQ(m_Stage.m_sLog, "r");
        m_bRunning = frame < 3;
    };
    Run();
    EXPECT_EQ(m_Stage.m_sLog, "rs");
}

TEST_F(RunLoopTest, EachFrameIsDrawnAfterItsIteration)
{
    CReferenceWorld reference = MakeReference(c_SceneDefault);
    m_Stage.m_OnFrame = [&](int frame) {
        reference.Advance();
        EXPECT_TRUE(IsSameWorld(m_World, reference)) << "frame " << frame;
        m_bRunning = frame < 5;
    };
    Run();
    EXPECT_EQ(m_Stage.m_iFrames, 5);
}

TEST_F(RunLoopTest, AStopWhileAFrameIsDrawnEndsTheLoopAfterThatFrame)
{
    m_Stage.m_OnFrame = [this](int) { m_bRunning = false; };
    Run();
    EXPECT_EQ(m_Stage.m_iFrames, 1);
    EXPECT_TRUE(m_Stage.m_Lines.empty());
}

TEST_F(RunLoopTest, AStopWhileALineIsShownEndsTheLoopWithoutAnotherFrame)
{
    int framesAtLine = 0;
    m_Stage.m_llIterationTime = 10'000;
    m_Stage.m_OnLine = [&] {
        framesAtLine = m_Stage.m_iFrames;
        m_bRunning = false;
    };
    Run();
    EXPECT_EQ(m_Stage.m_Lines.size(), 1U);
    EXPECT_EQ(m_Stage.m_iFrames, framesAtLine);
}

TEST_F(RunLoopTest, AnExceptionFromTheSinkEndsTheLoopAndSetsTheEvent)
{
    m_Stage.m_OnFrame = [](int) { throw std::runtime_error("the view is gone"); };
    std::wstring log;
    Run(&log);
    EXPECT_EQ(m_Stage.m_sLog, "rs");
    EXPECT_EQ(m_Stage.m_iFrames, 1);
    EXPECT_NE(log.find(L"the view is gone"), std::wstring::npos);
}

TEST_F(RunLoopTest, AnyExceptionIsCaught)
{
    m_Stage.m_OnFrame = [](int) { throw 42; };
    Run();
    EXPECT_EQ(m_Stage.m_sLog, "rs");
}

TEST_F(RunLoopTest, OutOfMemoryInAnIterationSetsTheEvent)
{
    // The grid has room for 256 atoms and must grow.
    m_World.atoms.Allocate(100'000);
    const CAllocationLimit limit(10'000);
    Run();
    EXPECT_EQ(m_Stage.m_sLog, "rs");
    EXPECT_EQ(m_Stage.m_iFrames, 0);
}

TEST_F(RunLoopTest, ASecondRunContinuesTheSameWorld)
{
    m_Stage.m_OnFrame = [this](int frame) { m_bRunning = frame != 2; };
    Run();
    m_bRunning = true;
    m_Stage.m_OnFrame = [this](int frame) { m_bRunning = frame != 4; };
    Run();
    EXPECT_EQ(m_Stage.m_sLog, "rsrs");
    CReferenceWorld reference = MakeReference(c_SceneDefault);
    for (int iteration = 0; iteration < 4; ++iteration)
    {
        reference.Advance();
    }
    EXPECT_TRUE(IsSameWorld(m_World, reference));
}

} // namespace
