#include "tests/simulation/CRunLoopTest.h"

#include "classes/core/CWString.h"
#include "simulation/RunLoop.h"

#include <chrono>

CRunLoopStage::CRunLoopStage(const CWorld& world) : m_World(world), m_uSeenWorld(HashAtoms(world.GetAtoms())) {}

void CRunLoopStage::DrawFrame()
{
    ++m_iFrames;
    GetNow(); // ends the time of the iteration
    if (m_OnFrame)
    {
        m_OnFrame(m_iFrames);
    }
}

void CRunLoopStage::ShowStatistics(const CWString& line)
{
    m_Lines.push_back(line.Get());
    m_LineFrames.push_back(m_iFrames);
    if (m_OnLine)
    {
        m_OnLine();
    }
}

// The loop cannot tell when it iterates, but a moved world shows it.
CDateTime CRunLoopStage::GetNow()
{
    const std::uint64_t uWorld = HashAtoms(m_World.GetAtoms());
    if (uWorld != m_uSeenWorld)
    {
        m_uSeenWorld = uWorld;
        m_llNow += m_llIterationTime;
    }
    return CDateTime(std::chrono::steady_clock::time_point(std::chrono::microseconds(m_llNow)));
}

void CRunLoopStage::WaitMicroSeconds(std::int64_t llMicroSeconds)
{
    m_Waits.push_back(llMicroSeconds);
    m_llNow += llMicroSeconds;
}

void CRunLoopTest::Run(std::wstring* pDebugLog)
{
    RunLoop(m_World.atoms, m_World.grid, m_World.size, m_World.random, m_bRunning, m_Stage, m_Stage, m_Stage,
            pDebugLog);
}

void CRunLoopTest::RunFrames(const std::vector<std::int64_t>& drawingTimes)
{
    m_Stage.m_OnFrame = [&](int frame) {
        const std::size_t uFrame = static_cast<std::size_t>(frame) - 1;
        m_bRunning = uFrame < drawingTimes.size();
        m_Stage.m_llNow += m_bRunning ? drawingTimes[uFrame] : 0;
    };
    Run();
}
