#pragma once

#include "simulation/IFinishedEvent.h"
#include "simulation/IFrameSink.h"
#include "simulation/IRunClock.h"
#include "tests/simulation/CWorld.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

// All that the run loop calls. Records the calls, lets a test act on every frame and line, and has a time of its own,
// which only passes when the loop waits and when the test says so.
class CRunLoopStage final : public IFinishedEvent, public IFrameSink, public IRunClock
{
public:
    explicit CRunLoopStage(const CWorld& world);

    void Reset() noexcept override { m_sLog += 'r'; }
    void Set() noexcept override { m_sLog += 's'; }
    void DrawFrame() override;
    void ShowStatistics(const CWString& line) override;
    CDateTime GetNow() override;
    void WaitMicroSeconds(std::int64_t llMicroSeconds) override;

    std::string m_sLog; // 'r' for a reset, 's' for a set
    int m_iFrames = 0;
    std::vector<std::wstring> m_Lines;
    std::vector<int> m_LineFrames; // the number of the last frame before each line
    std::vector<std::int64_t> m_Waits;
    std::function<void(int)> m_OnFrame;
    std::function<void()> m_OnLine;
    std::int64_t m_llNow = 0;           // microseconds
    std::int64_t m_llIterationTime = 0; // microseconds that each iteration takes

private:
    const CWorld& m_World;
    std::uint64_t m_uSeenWorld = 0;
};

class CRunLoopTest : public testing::Test
{
protected:
    void Run(std::wstring* pDebugLog = nullptr);

    // The frames take these times in microseconds, one after the other; the frame after them ends the loop.
    void RunFrames(const std::vector<std::int64_t>& drawingTimes);

    CWorld m_World{c_SceneDefault};
    CRunLoopStage m_Stage{m_World};
    std::atomic<bool> m_bRunning{true};
};
