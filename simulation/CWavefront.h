#pragma once

#include "simulation/CWaitPoint.h"
#include "simulation/IWavefront.h"
#include "simulation/WavefrontRule.h"

#include <atomic>
#include <cstddef>
#include <memory>
#include <mutex>

// The wavefront for threads that run at the same time.
//
// A thread that would have to wait for the row above leaves its row and goes on in another one. So a thread that is
// slower than the others, because its processor is or because other programs use it, holds them up little: the rows
// below it come as near as the rule allows, and whoever is free takes what is next. This cannot
// hang: the first row that is not complete waits for nothing. The thread that completed the row above looks at it
// afterwards; if another thread has it then, that one handles it or looks again after leaving it.
class CWavefront final : public IWavefront
{
public:
    // Starts with all cells to be done. Not while threads use it. Throws std::bad_alloc.
    void Restart(const CWavefrontRule& rule);

    bool TakeCells(CCellRun& run) override;
    void FinishCell(int row, int column) override;
    void AwaitDraw(int row) override;
    void Abort(std::exception_ptr pError) noexcept override;

private:
    // On a cache line of its own: two threads use it all the time.
    struct alignas(64) CRow
    {
        std::atomic<int> done{};    // cells
        std::atomic<int> wanted{};  // the least that a sleeper waits for
        std::atomic<bool> bTaken{}; // a thread handles cells of it
    };

    CRow& GetRow(int row) { return m_pRows[static_cast<std::size_t>(row)]; }
    int GetRunnable(int row);
    bool GoOnInRow(CCellRun& run);
    void LeaveRow(const CCellRun& run);
    bool TryTakeRow(CCellRun& run);
    int SkipCompleteRows();
    void SleepUntilARowIsFree();
    void Sleep(int row, int count);
    void ThrowIfAborted();

    CWavefrontRule m_Rule;
    std::unique_ptr<CRow[]> m_pRows;
    int m_iCapacity = 0;
    std::atomic<int> m_iFirstRow{0}; // the rows above are complete
    std::atomic<bool> m_bAborted{false};
    std::mutex m_ErrorMutex;
    std::exception_ptr m_pError;
    CWaitPoint m_Waiting;
};
