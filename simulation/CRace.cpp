#include "simulation/CRace.h"

#include <algorithm>

void CRace::Start(std::size_t uWays)
{
    m_Times.assign(uWays, 0);
    m_uTurn = 0;
    m_Total = 0;
}

void CRace::Report(double time)
{
    double& score = m_Times[GetTurn()];
    const bool bFirstRound = m_uTurn < m_Times.size();
    score = m_eScore == EnumScore::Total ? score + time : bFirstRound ? time : std::min(score, time);
    m_Total += time;
    ++m_uTurn;
}

std::size_t CRace::GetWinner() const
{
    return static_cast<std::size_t>(std::min_element(m_Times.begin(), m_Times.end()) - m_Times.begin());
}
