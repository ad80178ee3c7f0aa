#include "simulation/CWavefront.h"

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
    }
    m_pError = nullptr;
    m_bAborted = false;
    m_iNextRow = 0;
}

int CWavefront::TakeRow()
{
    ThrowIfAborted();
    return m_iNextRow++;
}

int CWavefront::AwaitCell(int row, int column)
{
    if (row == 0)
    {
        return m_Rule.columns;
    }
    AwaitDone(row - 1, m_Rule.GetNeeded(column));
    return m_Rule.GetRunnable(GetRow(row - 1).done);
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
    taken.done = done;
    m_Waiting.Announce();
}

void CWavefront::AwaitDraw(int row)
{
    if (row > 0)
    {
        AwaitDone(row - 1, m_Rule.GetNeededToDraw());
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

void CWavefront::AwaitDone(int row, int count)
{
    CRow& awaited = GetRow(row);
    const auto isDone = [&] { return awaited.done >= count || m_bAborted; };
    if (!CWaitPoint::Spin(isDone))
    {
        awaited.wanted = count;
        m_Waiting.Sleep(isDone);
        awaited.wanted = m_Rule.columns;
    }
    ThrowIfAborted();
}

void CWavefront::ThrowIfAborted()
{
    if (m_bAborted)
    {
        const std::lock_guard lock(m_ErrorMutex);
        std::rethrow_exception(m_pError);
    }
}
