#include "simulation/CFastestWay.h"

namespace
{

constexpr int c_iWarmUp = 2; // iterations that fill caches and allocate memory
constexpr int c_iKernelRounds = 4;
constexpr int c_iThreadRounds = 6;
constexpr double c_dPausePerLoss = 20; // time from race to race, in times that the race has lost
constexpr int c_iLongestPause = 600;   // iterations without a race if nothing changes and the last race lost little
constexpr int c_iWatchEvery = 16;      // iterations; reading the clock is not free
constexpr double c_dMuchChange = 1.25; // factor
constexpr int c_iCompared = 8;         // iterations whose average decides
constexpr int c_iChangedInARow = 2;    // a single slow iteration is chance

} // namespace

CFastestWay::CFastestWay(std::size_t uKernelSets, std::size_t uParallelWays)
    : m_uKernelSets(uKernelSets),
      m_uParallelWays(uParallelWays),
      m_Winner{uKernelSets - 1, uParallelWays - 1},
      m_KernelRace(CRace::EnumScore::Best, c_iKernelRounds),
      m_ThreadRace(CRace::EnumScore::Total, c_iThreadRounds)
{
}

CWay CFastestWay::GetWay() const
{
    switch (m_ePhase)
    {
    case EnumPhase::Kernels:
        return {m_KernelRace.GetTurn(), m_Winner.uParallel};
    case EnumPhase::Threads:
        return {m_Winner.uKernels, m_ThreadRace.GetTurn()};
    default:
        return m_Winner;
    }
}

bool CFastestWay::IsTimed() const
{
    if (m_uKernelSets * m_uParallelWays == 1 || m_ePhase == EnumPhase::WarmUp)
    {
        return false;
    }
    return m_ePhase != EnumPhase::Running || m_Winner.uParallel != 0 || m_iIteration % c_iWatchEvery == 0;
}

void CFastestWay::Report(double time)
{
    const bool bTimed = IsTimed();
    ++m_iIteration;
    switch (m_ePhase)
    {
    case EnumPhase::WarmUp:
        if (m_iIteration == c_iWarmUp)
        {
            StartRaces();
        }
        break;
    case EnumPhase::Kernels:
        m_KernelRace.Report(time);
        GoOn();
        break;
    case EnumPhase::Threads:
        m_ThreadRace.Report(time);
        GoOn();
        break;
    case EnumPhase::Running:
        if (bTimed)
        {
            Watch(time);
        }
        break;
    }
}

void CFastestWay::StartRaces()
{
    m_KernelRace.Start(m_uKernelSets);
    m_ThreadRace.Start(m_uParallelWays);
    m_ePhase = EnumPhase::Kernels;
    m_iIteration = 0;
}

// Goes to the next race when one is over, and to the run after the last.
void CFastestWay::GoOn()
{
    if (m_ePhase == EnumPhase::Kernels && m_KernelRace.IsOver())
    {
        m_Winner.uKernels = m_KernelRace.GetWinner();
        m_ePhase = EnumPhase::Threads;
    }
    if (m_ePhase == EnumPhase::Threads && m_ThreadRace.IsOver())
    {
        m_Winner.uParallel = m_ThreadRace.GetWinner();
        StartRunning();
    }
}

void CFastestWay::StartRunning()
{
    m_ePhase = EnumPhase::Running;
    m_iIteration = 0;
    m_iChanged = 0;
    m_WinnerTime = m_ThreadRace.GetBestScore() / c_iThreadRounds;
    m_OneThreadTime = m_ThreadRace.GetScore(0) / c_iThreadRounds;
    m_WatchedTime = 0;
    m_iWatched = 0;
    const double loss = m_KernelRace.GetLoss(m_WinnerTime) + m_ThreadRace.GetLoss(m_WinnerTime);
    m_Pause = m_WinnerTime > 0 ? c_dPausePerLoss * loss / m_WinnerTime : 0;
}

// Threads that wait for each other are usually fast and now and then very slow while other programs use the processors.
// A short race can miss that.
bool CFastestWay::AreThreadsSlow(double time)
{
    m_WatchedTime += time;
    if (++m_iWatched < c_iCompared)
    {
        return false;
    }
    const bool bSlow = m_WatchedTime > c_iCompared * m_OneThreadTime;
    m_WatchedTime = 0;
    m_iWatched = 0;
    return bSlow;
}

void CFastestWay::Watch(double time)
{
    if (m_Winner.uParallel != 0 && AreThreadsSlow(time))
    {
        m_Winner.uParallel = 0;
        m_WinnerTime = m_OneThreadTime;
        return;
    }
    const bool bChanged = time > m_WinnerTime * c_dMuchChange || time * c_dMuchChange < m_WinnerTime;
    m_iChanged = bChanged ? m_iChanged + 1 : 0;
    const bool bDue = m_iIteration > c_iLongestPause || m_iChanged >= c_iChangedInARow;
    if (bDue && m_iIteration > m_Pause)
    {
        StartRaces();
    }
}
