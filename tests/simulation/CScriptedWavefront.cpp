#include "tests/simulation/CScriptedWavefront.h"

#include <algorithm>

CScriptedWavefront::CScriptedWavefront(const CWavefrontRule& rule, const std::vector<std::size_t>& choices)
    : m_Rule(rule), m_Choices(choices), m_Rows(static_cast<std::size_t>(rule.rows))
{
}

void CScriptedWavefront::RunAll()
{
    std::unique_lock lock(m_Mutex);
    for (;;)
    {
        m_Changed.wait(lock, [this] { return AreAllWaiting(); });
        const std::vector<CRow*> rows = GetRowsThatMayGoOn();
        if (rows.empty())
        {
            return;
        }
        const std::size_t uStep = m_Options.size();
        m_Options.push_back(rows.size());
        rows.at(uStep < m_Choices.size() ? m_Choices[uStep] : 0)->bWaiting = false;
        m_Changed.notify_all();
    }
}

// One cell at a time. A thread stays in its row, the first that no thread had taken.
bool CScriptedWavefront::TakeCells(CCellRun& run)
{
    if (run.end == m_Rule.columns)
    {
        return false;
    }
    if (run.end == 0)
    {
        const std::lock_guard lock(m_Mutex);
        run.row = m_iTaken++;
    }
    Wait(run.row, run.row == 0 ? 0 : m_Rule.GetNeeded(run.end));
    run = {run.row, run.end, run.end + 1};
    return true;
}

void CScriptedWavefront::FinishCell(int row, int)
{
    const std::lock_guard lock(m_Mutex);
    ++m_Rows.at(static_cast<std::size_t>(row)).done;
    m_Changed.notify_all();
}

void CScriptedWavefront::AwaitDraw(int row)
{
    {
        const std::lock_guard lock(m_Mutex);
        if (GetDoneAbove(row) >= m_Rule.GetNeededToDraw())
        {
            return;
        }
    }
    Wait(row, m_Rule.GetNeededToDraw());
}

void CScriptedWavefront::Abort(std::exception_ptr) noexcept {}

void CScriptedWavefront::Wait(int row, int needed)
{
    std::unique_lock lock(m_Mutex);
    CRow& waiting = m_Rows.at(static_cast<std::size_t>(row));
    waiting.bWaiting = true;
    waiting.needed = needed;
    m_Changed.notify_all();
    m_Changed.wait(lock, [&waiting] { return !waiting.bWaiting; });
}

// The cells that are done above a row; for the first row, all.
int CScriptedWavefront::GetDoneAbove(int row) const
{
    return row == 0 ? m_Rule.columns : m_Rows.at(static_cast<std::size_t>(row) - 1).done;
}

bool CScriptedWavefront::AreAllWaiting() const
{
    return std::all_of(m_Rows.begin(), m_Rows.end(),
                       [this](const CRow& row) { return row.bWaiting || row.done == m_Rule.columns; });
}

std::vector<CScriptedWavefront::CRow*> CScriptedWavefront::GetRowsThatMayGoOn()
{
    std::vector<CRow*> rows;
    for (int row = 0; row < m_Rule.rows; ++row)
    {
        CRow& candidate = m_Rows.at(static_cast<std::size_t>(row));
        if (candidate.bWaiting && GetDoneAbove(row) >= candidate.needed)
        {
            rows.push_back(&candidate);
        }
    }
    return rows;
}
