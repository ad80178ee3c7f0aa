#include "classes/core/CWString.h"
#include "classes/core/OutputDebugMessage.h"
#include "diagnostics/PruneDebugLog.h"
#include "simulation/CRunClock.h"
#include "simulation/IFinishedEvent.h"
#include "simulation/IFrameSink.h"
#include "simulation/RunLoop.h"
#include "tests/simulation/CWorld.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <numeric>
#include <random>
#include <string>
#include <thread>

// The run loop on one thread and a message pump on another, as in the program: the two messages of the worker are
// synchronous, and a stop clears the flag and pumps until the event is set. Under the thread sanitizer these tests
// prove that the threads share only the flag, the event, the log, and the data that they hand over with a frame.
namespace
{

using std::chrono::microseconds;

constexpr microseconds c_Patience{500}; // longest wait for a message

// A queue of synchronous messages: the sender waits until the pumping thread has handled its message.
class CMessageQueue
{
public:
    // On the worker's thread.
    void Send(std::function<void()> message)
    {
        std::unique_lock lock(m_Mutex);
        m_Message = std::move(message);
        m_Changed.notify_all();
        m_Changed.wait(lock, [this] { return !m_Message; });
    }

    // On the pumping thread: handles a message, or waits up to patience for one.
    void Pump(microseconds patience)
    {
        std::unique_lock lock(m_Mutex);
        if (m_Changed.wait_for(lock, patience, [this] { return m_Message != nullptr; }))
        {
            m_Message();
            m_Message = nullptr;
            m_Changed.notify_all();
        }
    }

private:
    std::mutex m_Mutex;
    std::condition_variable m_Changed;
    std::function<void()> m_Message;
};

class CFinishedFlag final : public IFinishedEvent
{
public:
    void Reset() noexcept override { m_bSet = false; }
    void Set() noexcept override { m_bSet = true; }
    bool IsSet() const { return m_bSet; }

private:
    std::atomic<bool> m_bSet{true};
};

// Reads the same data as the view and the status bar while the worker waits for them.
class CWindow final : public IFrameSink
{
public:
    CWindow(const CWorld& world, CMessageQueue& queue) : m_World(world), m_Queue(queue) {}

    void DrawFrame() override
    {
        m_Queue.Send([this] {
            ++m_iFrames;
            const auto atoms = m_World.GetAtoms();
            m_fSpeeds = std::accumulate(atoms.begin(), atoms.end(), 0.0F,
                                        [](float fSum, const CAtom& atom) { return fSum + atom.speed; });
            m_fAverage = m_World.atoms.GetAvgVelocity();
            const bool bInside = std::all_of(atoms.begin(), atoms.end(), [this](const CAtom& atom) {
                return atom.x >= 0 && atom.y >= 0 && atom.x <= static_cast<float>(m_World.size.cx) &&
                       atom.y <= static_cast<float>(m_World.size.cy);
            });
            m_iBadFrames += bInside ? 0 : 1;
        });
    }

    void ShowStatistics(const CWString& line) override
    {
        m_Queue.Send([this, &line] { m_sLine = line.Get(); });
    }

    int GetFrames() const { return m_iFrames; }
    int GetBadFrames() const { return m_iBadFrames; }
    float GetSpeeds() const { return m_fSpeeds; }
    float GetAverage() const { return m_fAverage; }
    const std::wstring& GetLine() const { return m_sLine; }

private:
    const CWorld& m_World;
    CMessageQueue& m_Queue;
    int m_iFrames = 0;
    int m_iBadFrames = 0;
    float m_fSpeeds = 0;
    float m_fAverage = 0;
    std::wstring m_sLine;
};

// Start and stop as the main window does them.
class CSimulation
{
public:
    void Start()
    {
        m_bRunning = true;
        m_Thread = std::thread([this] {
            CRunClock clock;
            RunLoop(m_World.atoms, m_World.grid, m_World.size, m_World.random, m_bRunning, m_Finished, m_Window, clock,
                    &m_sDebugLog);
        });
    }

    // Handles messages, and prunes the debug log in between, as its timer does.
    void PumpFor(microseconds duration)
    {
        const auto end = std::chrono::steady_clock::now() + duration;
        while (std::chrono::steady_clock::now() < end)
        {
            m_Queue.Pump(c_Patience);
            PruneDebugLog(m_sDebugLog, c_uKept);
        }
    }

    void PumpUntilFrame()
    {
        while (m_Window.GetFrames() == 0)
        {
            m_Queue.Pump(c_Patience);
        }
    }

    void PumpUntilLine()
    {
        while (m_Window.GetLine().empty())
        {
            PumpFor(microseconds(1000));
        }
    }

    // A stop before the worker has reset the event finds it still set and joins at once. That is safe: then the worker
    // reads the cleared flag and sends nothing (flag and event are sequentially consistent).
    void Stop()
    {
        m_bRunning = false;
        while (!m_Finished.IsSet())
        {
            m_Queue.Pump(c_Patience);
        }
        m_Thread.join();
    }

    const CWorld& GetWorld() const { return m_World; }
    const CWindow& GetWindow() const { return m_Window; }
    const std::wstring& GetDebugLog() const { return m_sDebugLog; }

    static constexpr std::size_t c_uKept = 1000; // characters

private:
    CWorld m_World{c_SceneDefault};
    CMessageQueue m_Queue;
    CWindow m_Window{m_World, m_Queue};
    CFinishedFlag m_Finished;
    std::atomic<bool> m_bRunning{false};
    std::wstring m_sDebugLog;
    std::thread m_Thread;
};

// A stop can come before the first frame, while a frame is drawn, and while the worker computes the next one or waits.
// In each case the worker ends, no iteration is lost or incomplete, and the next start continues from there.
TEST(RunLoopOnAThread, AStopAtAnyMomentEndsTheLoopAfterAWholeIteration)
{
    constexpr int c_iStops = 60;
    constexpr int c_iLongestRun = 40'000; // microseconds: a little more than two frames
    CSimulation simulation;
    std::mt19937 random(20);
    for (int stop = 0; stop < c_iStops; ++stop)
    {
        simulation.Start();
        simulation.PumpFor(microseconds(static_cast<int>(random() % c_iLongestRun)));
        simulation.Stop();
    }
    CReferenceWorld reference = MakeReference(c_SceneDefault);
    for (int frame = 0; frame < simulation.GetWindow().GetFrames(); ++frame)
    {
        reference.Advance();
    }
    EXPECT_TRUE(IsSameWorld(simulation.GetWorld(), reference));
    EXPECT_EQ(simulation.GetWindow().GetBadFrames(), 0);
}

TEST(RunLoopOnAThread, AStopRightAfterTheStartEndsTheLoopToo)
{
    constexpr int c_iStops = 200;
    CSimulation simulation;
    for (int stop = 0; stop < c_iStops; ++stop)
    {
        simulation.Start();
        simulation.Stop();
    }
    EXPECT_LE(simulation.GetWindow().GetFrames(), c_iStops);
    EXPECT_EQ(simulation.GetWindow().GetBadFrames(), 0);
}

TEST(RunLoopOnAThread, AFrameShowsTheIterationBeforeIt)
{
    CSimulation simulation;
    simulation.Start();
    simulation.PumpUntilFrame();
    simulation.PumpFor(microseconds(50'000));
    simulation.Stop();
    const CWorld& world = simulation.GetWorld();
    EXPECT_EQ(simulation.GetWindow().GetAverage(), world.atoms.GetAvgVelocity());
    const auto atoms = world.GetAtoms();
    EXPECT_EQ(simulation.GetWindow().GetSpeeds(),
              std::accumulate(atoms.begin(), atoms.end(), 0.0F,
                              [](float fSum, const CAtom& atom) { return fSum + atom.speed; }));
}

// Runs until a line is shown: about a second.
TEST(RunLoopOnAThread, ALineReachesTheWindowAndTheLogWhileTheLogIsPruned)
{
    CSimulation simulation;
    simulation.Start();
    simulation.PumpUntilLine();
    simulation.Stop();
    EXPECT_TRUE(simulation.GetWindow().GetLine().starts_with(L"Iter = "));
    EXPECT_NE(simulation.GetDebugLog().find(simulation.GetWindow().GetLine()), std::wstring::npos);
}

} // namespace
