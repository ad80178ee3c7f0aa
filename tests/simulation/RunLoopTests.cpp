#include "simulation/RunLoop.h"

#include "classes/core/OutputDebugMessage.h"
#include "simulation/IFinishedEvent.h"
#include "simulation/IFrameSink.h"
#include "tests/simulation/CAllocationWatch.h"
#include "tests/simulation/CWorld.h"

#include <functional>
#include <stdexcept>
#include <string>

namespace
{

// Records the calls of the loop to its event and its sink, and lets a test act on every frame.
class CRecorder final : public IFinishedEvent, public IFrameSink
{
public:
    void Reset() noexcept override { m_sLog += 'r'; }
    void Set() noexcept override { m_sLog += 's'; }

    void DrawFrame() override
    {
        ++m_iFrames;
        if (m_OnFrame)
        {
            m_OnFrame(m_iFrames);
        }
    }

    void ShowStatistics(const CWString& line) override
    {
        m_Lines.push_back(line.Get());
        if (m_OnLine)
        {
            m_OnLine();
        }
    }

    std::string m_sLog; // 'r' for a reset, 's' for a set
    int m_iFrames = 0;
    std::vector<std::wstring> m_Lines;
    std::function<void(int)> m_OnFrame;
    std::function<void()> m_OnLine;
};

// The line with every digit replaced by 0 and every integer part shortened to one digit.
std::wstring GetShape(const std::wstring& line)
{
    std::wstring shape;
    bool bAfterPoint = false;
    for (const wchar_t c : line)
    {
        const bool bDigit = c >= L'0' && c <= L'9';
        if (!bDigit)
        {
            shape += c;
            bAfterPoint = c == L'.';
        }
        else if (bAfterPoint || shape.back() != L'0')
        {
            shape += L'0';
        }
    }
    return shape;
}

int GetIterations(const std::wstring& line)
{
    return std::stoi(line.substr(std::wstring_view(L"Iter = ").size()));
}

class RunLoopTest : public testing::Test
{
protected:
    void Run(std::wstring* pDebugLog = nullptr)
    {
        RunLoop(m_World.atoms, m_World.grid, m_World.size, m_World.random, m_bRunning, m_Recorder, m_Recorder,
                pDebugLog);
    }

    CWorld m_World{c_SceneDefault};
    CRecorder m_Recorder;
    std::atomic<bool> m_bRunning{true};
};

TEST_F(RunLoopTest, WithoutAtomsTheEventIsResetAndSetAndNothingIsDrawn)
{
    m_World.atoms.Allocate(0);
    Run();
    EXPECT_EQ(m_Recorder.m_sLog, "rs");
    EXPECT_EQ(m_Recorder.m_iFrames, 0);
}

TEST_F(RunLoopTest, AClearedFlagEndsTheLoopBeforeTheFirstIteration)
{
    m_bRunning = false;
    Run();
    EXPECT_EQ(m_Recorder.m_sLog, "rs");
    EXPECT_EQ(m_Recorder.m_iFrames, 0);
    EXPECT_TRUE(IsSameWorld(m_World, MakeReference(c_SceneDefault)));
}

TEST_F(RunLoopTest, TheEventIsResetBeforeTheFirstFrameAndSetAfterTheLast)
{
    m_Recorder.m_OnFrame = [this](int frame) {
        EXPECT_EQ(m_Recorder.m_sLog, "r");
        m_bRunning = frame < 3;
    };
    Run();
    EXPECT_EQ(m_Recorder.m_sLog, "rs");
}

TEST_F(RunLoopTest, EachFrameIsDrawnAfterItsIteration)
{
    CReferenceWorld reference = MakeReference(c_SceneDefault);
    m_Recorder.m_OnFrame = [&](int frame) {
        reference.Advance();
        EXPECT_TRUE(IsSameWorld(m_World, reference)) << "frame " << frame;
        m_bRunning = frame < 5;
    };
    Run();
    EXPECT_EQ(m_Recorder.m_iFrames, 5);
}

TEST_F(RunLoopTest, AStopWhileAFrameIsDrawnEndsTheLoopAfterThatFrame)
{
    m_Recorder.m_OnFrame = [this](int) { m_bRunning = false; };
    Run();
    EXPECT_EQ(m_Recorder.m_iFrames, 1);
    EXPECT_TRUE(m_Recorder.m_Lines.empty());
}

TEST_F(RunLoopTest, AStopWhileALineIsShownEndsTheLoopWithoutAnotherFrame)
{
    int framesAtLine = 0;
    m_Recorder.m_OnLine = [&] {
        framesAtLine = m_Recorder.m_iFrames;
        m_bRunning = false;
    };
    Run();
    EXPECT_EQ(m_Recorder.m_Lines.size(), 1U);
    EXPECT_EQ(m_Recorder.m_iFrames, framesAtLine);
}

TEST_F(RunLoopTest, AnExceptionFromTheSinkEndsTheLoopAndSetsTheEvent)
{
    m_Recorder.m_OnFrame = [](int) { throw std::runtime_error("the view is gone"); };
    std::wstring log;
    Run(&log);
    EXPECT_EQ(m_Recorder.m_sLog, "rs");
    EXPECT_EQ(m_Recorder.m_iFrames, 1);
    EXPECT_NE(log.find(L"the view is gone"), std::wstring::npos);
}

TEST_F(RunLoopTest, AnyExceptionIsCaught)
{
    m_Recorder.m_OnFrame = [](int) { throw 42; };
    Run();
    EXPECT_EQ(m_Recorder.m_sLog, "rs");
}

TEST_F(RunLoopTest, OutOfMemoryInAnIterationSetsTheEvent)
{
    // The grid has room for 256 atoms and must grow.
    m_World.atoms.Allocate(100'000);
    const CAllocationLimit limit(10'000);
    Run();
    EXPECT_EQ(m_Recorder.m_sLog, "rs");
    EXPECT_EQ(m_Recorder.m_iFrames, 0);
}

TEST_F(RunLoopTest, ASecondRunContinuesTheSameWorld)
{
    m_Recorder.m_OnFrame = [this](int frame) { m_bRunning = frame != 2; };
    Run();
    m_bRunning = true;
    m_Recorder.m_OnFrame = [this](int frame) { m_bRunning = frame != 4; };
    Run();
    EXPECT_EQ(m_Recorder.m_sLog, "rsrs");
    CReferenceWorld reference = MakeReference(c_SceneDefault);
    for (int iteration = 0; iteration < 4; ++iteration)
    {
        reference.Advance();
    }
    EXPECT_TRUE(IsSameWorld(m_World, reference));
}

// Runs until two lines have been shown: about two seconds.
TEST_F(RunLoopTest, AboutEverySecondALineIsShownAndWrittenToTheLog)
{
    m_Recorder.m_OnLine = [this] { m_bRunning = m_Recorder.m_Lines.size() < 2; };
    std::wstring log;
    Run(&log);
    ASSERT_EQ(m_Recorder.m_Lines.size(), 2U);
    const std::wstring shape = L"Iter = 0   0.00 ms = 0.00 FPS     velocity: min = 0.000   max = 0.000   tot = 0.000   "
                               L"avg = 0.000   collided = 0.00%";
    EXPECT_EQ(GetShape(m_Recorder.m_Lines[0]), shape);
    EXPECT_EQ(GetShape(m_Recorder.m_Lines[1]), shape);
    EXPECT_GT(GetIterations(m_Recorder.m_Lines[1]), GetIterations(m_Recorder.m_Lines[0])) << "never reset";
    EXPECT_EQ(GetIterations(m_Recorder.m_Lines[1]), m_Recorder.m_iFrames);
    EXPECT_NE(log.find(m_Recorder.m_Lines[0] + L"\n"), std::wstring::npos);
    EXPECT_NE(log.find(m_Recorder.m_Lines[1] + L"\n"), std::wstring::npos);
}

} // namespace
