#pragma once

#include "simulation/WavefrontRule.h"

#include <cstddef>
#include <vector>

// Replays measured times of cells through the rule of the wavefront: what each thread takes when it has done its cell,
// in the way of CWavefront. Neither the limits of a shared memory nor the waking of threads are in it.
class CReplay
{
public:
    // The times of all cells at full speed, row by row, and the speed of each thread, 1 being the full one. Keeps a
    // reference to the times.
    CReplay(const std::vector<double>& times, const CWavefrontRule& rule, const std::vector<double>& speeds);

    // When the last cell is done, in the unit of the times.
    double Run();

private:
    struct CThread
    {
        double speed;
        double time; // when it can begin a cell
        int row;
    };

    struct CRow
    {
        int begun = 0; // cells
        bool bTaken = false;
    };

    std::size_t GetCell(int row, int column) const;
    CRow& GetRow(int row) { return m_Rows[static_cast<std::size_t>(row)]; }
    bool IsReady(int row, double time);
    bool FindRow(CThread& thread);
    double HandleCell(CThread& thread);
    void Wait(CThread& thread);

    const std::vector<double>& m_Times;
    CWavefrontRule m_Rule;
    std::vector<double> m_Ends; // of the cells
    std::vector<CRow> m_Rows;
    std::vector<CThread> m_Threads;
};
