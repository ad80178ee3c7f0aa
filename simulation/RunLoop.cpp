#include "simulation/RunLoop.h"

#include "classes/core/OutputDebugMessage.h"
#include "diagnostics/Guard.h"
#include "simulation/CAtoms.h"
#include "simulation/CIterationRunner.h"
#include "simulation/FrameCap.h"
#include "simulation/IFinishedEvent.h"
#include "simulation/IFrameSink.h"
#include "simulation/IRunClock.h"
#include "simulation/SimulationConstants.h"
#include "simulation/ThreadSetting.h"

static_assert(std::atomic<bool>::is_always_lock_free && sizeof(std::atomic<bool>) == 1,
              "the run flag is read in every pass and must never block");

namespace
{

// Resets the event, and sets it at the end of the scope, also after an exception.
class CFinishedScope
{
public:
    explicit CFinishedScope(IFinishedEvent& finished) : m_Finished(finished) { m_Finished.Reset(); }
    ~CFinishedScope() { m_Finished.Set(); }
    CFinishedScope(const CFinishedScope&) = delete;
    CFinishedScope& operator=(const CFinishedScope&) = delete;

private:
    IFinishedEvent& m_Finished;
};

// Sums up passes, and reports a line when one is due.
class CReporter
{
public:
    CReporter(const CAtoms& atoms, IFrameSink& sink, IRunClock& clock, std::wstring* pDebugLog)
        : m_Atoms(atoms), m_Sink(sink), m_Clock(clock), m_pDebugLog(pDebugLog), m_ReportTime(clock.GetNow())
    {
    }

    void Add(std::uint32_t uCollisions, float passMs)
    {
        ++m_Statistics.totalIterations;
        ++m_Statistics.iterationsSinceReport;
        m_Statistics.collisionsSinceReport += uCollisions;
        m_Statistics.timeSumMs += passMs;
        if (m_Clock.GetNow().DiffInMilliSeconds(m_ReportTime) > c_iReportPeriodMs)
        {
            Report();
        }
    }

private:
    void Report()
    {
        m_Statistics.velocities = m_Atoms.GetVelocities();
        m_Statistics.atomCount = m_Atoms.GetCount();
        m_sLine = FormatStatisticsLine(m_Statistics);
        OutputDebugMessage(m_pDebugLog, L"%s\n", m_sLine);
        m_Sink.ShowStatistics(m_sLine);
        m_ReportTime = m_Clock.GetNow();
        m_Statistics.iterationsSinceReport = 0;
        m_Statistics.collisionsSinceReport = 0;
        m_Statistics.timeSumMs = 0;
    }

    const CAtoms& m_Atoms;
    IFrameSink& m_Sink;
    IRunClock& m_Clock;
    std::wstring* m_pDebugLog;
    CDateTime m_ReportTime;
    CWString m_sLine;
    CRunStatistics m_Statistics;
};

} // namespace

void RunLoop(CAtoms& atoms, CCollisionGrid& grid, const CSize<int>& world, CRandom& random,
             const std::atomic<bool>& running, IFinishedEvent& finished, IFrameSink& sink, IRunClock& clock,
             std::wstring* pDebugLog)
{
    const auto runPasses = [&] {
        const CFinishedScope finishedScope(finished);
        if (atoms.GetCount() <= 0)
        {
            return;
        }
        CIterationRunner runner(GetThreadCount());
        CReporter reporter(atoms, sink, clock, pDebugLog);
        while (running)
        {
            const CDateTime start = clock.GetNow();
            const std::uint32_t uCollisions = runner.Advance(atoms, grid, world, random);
            sink.DrawFrame();
            if (!running)
            {
                break;
            }
            const float ms = static_cast<float>(clock.GetNow().DiffInMicroSeconds(start)) / c_fMicroSecondsPerMs;
            clock.WaitMicroSeconds(GetFrameCapWait(ms));
            reporter.Add(uCollisions, ms);
        }
    };
    Traced({pDebugLog, __TIMESTAMP__}, runPasses);
}
