#pragma once

#include "simulation/IWavefront.h"
#include "simulation/WavefrontRule.h"

#include <condition_variable>
#include <cstddef>
#include <exception>
#include <mutex>
#include <vector>

// A wavefront whose threads run one at a time, in an order that the test chooses among those that the rule allows. Each
// row is handled by a thread of its own. A step of a row is a cell, or the part of a cell up to or from its wait for
// random numbers.
class CScriptedWavefront final : public IWavefront
{
public:
    // In each step, choices[step] is the number of the row to go on among those that may; 0 after the end of the list.
    CScriptedWavefront(const CWavefrontRule& rule, const std::vector<std::size_t>& choices);

    // Lets the threads of all rows run to their ends, step by step. They must call CollideRows, or will.
    void RunAll();

    // How many rows could have gone on in each step.
    const std::vector<std::size_t>& GetOptions() const { return m_Options; }

    bool TakeCells(CCellRun& run) override;
    void FinishCell(int row, int column) override;
    void AwaitDraw(int row) override;
    void Abort(std::exception_ptr pError) noexcept override;

private:
    struct CRow
    {
        bool bWaiting = false;
        int needed = 0; // cells of the row above
        int done = 0;
    };

    void Wait(int row, int needed);
    int GetDoneAbove(int row) const;
    bool AreAllWaiting() const;
    std::vector<CRow*> GetRowsThatMayGoOn();

    const CWavefrontRule m_Rule;
    const std::vector<std::size_t>& m_Choices;
    std::vector<std::size_t> m_Options;
    std::mutex m_Mutex;
    std::condition_variable m_Changed;
    std::vector<CRow> m_Rows;
    int m_iTaken = 0;
};
