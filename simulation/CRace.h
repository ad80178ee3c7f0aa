#pragma once

#include <cstddef>
#include <vector>

// Compares the times of some ways to do the same work, in turns: in each round, each way does the work once.
class CRace
{
public:
    enum class EnumScore
    {
        Best, // the shortest time: for ways that a disturbance hits alike
        Total // the sum: for ways that suffer from disturbances differently
    };

    CRace(EnumScore eScore, int rounds) : m_eScore(eScore), m_iRounds(rounds) {}

    // Starts with that many ways, at least one.
    void Start(std::size_t uWays);

    bool IsOver() const { return m_uTurn == m_Times.size() * static_cast<std::size_t>(m_iRounds); }

    // The way whose turn it is.
    std::size_t GetTurn() const { return m_uTurn % m_Times.size(); }

    // Its time; the unit does not matter.
    void Report(double time);

    // The way with the lowest score; the first of them if several have it.
    std::size_t GetWinner() const;

    double GetScore(std::size_t uWay) const { return m_Times[uWay]; }
    double GetBestScore() const { return m_Times[GetWinner()]; }

    // The time that was lost if every turn could have taken only this time.
    double GetLoss(double time) const { return m_Total - static_cast<double>(m_uTurn) * time; }

private:
    EnumScore m_eScore;
    int m_iRounds;
    std::size_t m_uTurn = 0;
    double m_Total = 0;
    std::vector<double> m_Times; // scores
};
