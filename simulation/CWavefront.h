#pragma once

#include "simulation/CWaitPoint.h"
#include "simulation/IWavefront.h"
#include "simulation/WavefrontRule.h"

#include <atomic>
#include <cstddef>
#include <memory>
#include <mutex>

// The wavefront for threads that run at the same time.
class CWavefront final : public IWavefront
{
public:
    // Starts with all cells to be done. Not while threads use it. Throws std::bad_alloc.
    void Restart(const CWavefrontRule& rule);

    int TakeRow() override;
    int AwaitCell(int row, int column) override;
    void FinishCell(int row, int column) override;
    void AwaitDraw(int row) override;
    void Abort(std::exception_ptr pError) noexcept override;

private:
    // On a cache line of its own: two threads use it all the time.
    struct alignas(64) CRow
    {
        std::atomic<int> done{};   // cells
        std::atomic<int> wanted{}; // the sleeper that waits for this row wants that many
    };

    CRow& GetRow(int row) { return m_pRows[static_cast<std::size_t>(row)]; }
    void AwaitDone(int row, int count);
    void ThrowIfAborted();

    CWavefrontRule m_Rule;
    std::unique_ptr<CRow[]> m_pRows;
    int m_iCapacity = 0;
    std::atomic<int> m_iNextRow{0};
    std::atomic<bool> m_bAborted{false};
    std::mutex m_ErrorMutex;
    std::exception_ptr m_pError;
    CWaitPoint m_Waiting;
};
