#include "simulation/CWavefront.h"

#include <algorithm>
#include <utility>

void CWavefront::Restart(const CWavefrontRule& rule)
{
    if (m_iCapacity < rule.rows)
    {
        m_pRows = std::make_unique<CRow[]>(static_cast<std::size_t>(rule.rows));
        m_iCapacity = rule.rows;
    }
    m_Rule = rule;
    for (int row = 0; row < rule.rows; ++row)
    {
        GetRow(row).done.store(0, std::memory_order_relaxed);
        GetRow(row).wanted.store(rule.columns, std::memory_order_relaxed);
        GetRow(row).bTaken.store(false, std::memory_order_relaxed);
    }
    m_pError = nullptr;
    m_bAborted = false;
    m_iFirstRow = 0;
}

bool CWavefront::TakeCells(CCellRun& run)
{
    ThrowIfAborted();
    if (GoOnInRow(run))
    {
        return true;
    }
    LeaveRow(run);
    run = {};
    const auto canGoOn = [&] { return TryTakeRow(run) || m_iFirstRow == m_Rule.rows || m_bAborted; };
    while (!CWaitPoint::Spin(canGoOn))
    {
        SleepUntilARowIsFree();
    }
    ThrowIfAborted();
    return run.end > 0;
}

void CWavefront::FinishCell(int row, int column)
{
    CRow& taken = GetRow(row);
    const int done = column + 1;
    if (done < m_Rule.columns && done < taken.wanted.load(std::memory_order_relaxed))
    {
        // Usual. A sequentially consistent store would wait for all stores before it. If this one misses a new sleeper,
        // a later cell of the row wakes it.
        taken.done.store(done, std::memory_order_release);
        return;
    }
    taken.wanted = m_Rule.columns; // sleepers that are not content will say again what they want
    taken.done = done;
    m_Waiting.Announce();
}

void CWavefront::AwaitDraw(int row)
{
    if (row > 0)
    {
        const int needed = m_Rule.GetNeededToDraw();
        if (!CWaitPoint::Spin([&] { return GetRow(row - 1).done >= needed || m_bAborted; }))
        {
            Sleep(row - 1, needed);
        }
        ThrowIfAborted();
    }
}

void CWavefront::Abort(std::exception_ptr pError) noexcept
{
    {
        const std::lock_guard lock(m_ErrorMutex);
        if (!m_pError)
        {
            m_pError = std::move(pError);
        }
    }
    m_bAborted = true;
    m_Waiting.Announce();
}

// The number of cells of a row that may be handled.
int CWavefront::GetRunnable(int row)
{
    return row == 0 ? m_Rule.columns : m_Rule.GetRunnable(GetRow(row - 1).done);
}

// Takes the next cells of the row that this thread has taken.
bool CWavefront::GoOnInRow(CCellRun& run)
{
    const CCellRun next{run.row, run.end, GetRunnable(run.row)};
    if (run.end == 0 || next.first >= next.end)
    {
        return false;
    }
    run = next;
    return true;
}

void CWavefront::LeaveRow(const CCellRun& run)
{
    if (run.end > 0)
    {
        GetRow(run.row).bTaken = false;
    }
}

// Takes the uppermost row that is free and has cells that may be handled.
bool CWavefront::TryTakeRow(CCellRun& run)
{
    for (int row = SkipCompleteRows(); row < m_Rule.rows; ++row)
    {
        CRow& candidate = GetRow(row);
        if (candidate.done < GetRunnable(row) && !candidate.bTaken && !candidate.bTaken.exchange(true))
        {
            const CCellRun found{row, candidate.done, GetRunnable(row)};
            if (found.first < found.end)
            {
                run = found;
                return true;
            }
            // Another thread has handled these cells since the look at them. Now the row above may be complete, and the
            // thread that completed it may have passed this row because it was taken. So look again from the top.
            LeaveRow(found);
            return false;
        }
        if (candidate.done < m_Rule.GetNeeded(0))
        {
            return false; // none of the rows below may begin
        }
    }
    return false;
}

// Returns the first row that is not complete; the number of rows if all are.
int CWavefront::SkipCompleteRows()
{
    int first = m_iFirstRow;
    int row = first;
    while (row < m_Rule.rows && GetRow(row).done == m_Rule.columns)
    {
        ++row;
    }
    while (first < row && !m_iFirstRow.compare_exchange_weak(first, row))
    {
    }
    return row;
}

void CWavefront::SleepUntilARowIsFree()
{
    // The first row that no thread has taken waits for the one above. If all are taken, the last one must end.
    int row = std::max(1, SkipCompleteRows());
    while (row < m_Rule.rows && GetRow(row).bTaken)
    {
        ++row;
    }
    const int count = row < m_Rule.rows ? m_Rule.GetNeeded(GetRow(row).done) : m_Rule.columns;
    Sleep(row - 1, count);
}

// Sleeps until so many cells of a row are done.
void CWavefront::Sleep(int row, int count)
{
    CRow& awaited = GetRow(row);
    m_Waiting.Sleep([&] {
        int wanted = awaited.wanted;
        while (count < wanted && !awaited.wanted.compare_exchange_weak(wanted, count))
        {
        }
        return awaited.done >= count || m_bAborted;
    });
}

void CWavefront::ThrowIfAborted()
{
    if (m_bAborted)
    {
        const std::lock_guard lock(m_ErrorMutex);
        std::rethrow_exception(m_pError);
    }
}
