#include "app/CWindowFrameSink.h"

#include "classes/core/CWString.h"

void CWindowFrameSink::DrawFrame()
{
    SendMessageW(m_hView, WM_ERASEBKGND, 0, 0);
}

void CWindowFrameSink::ShowStatistics(const CWString& line)
{
    SendMessageW(m_hStatusBar, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(line.c_str()));
}

void CWorkerFinishedEvent::Reset() noexcept
{
    m_bFinished = false;
    if (m_hEvent != nullptr)
    {
        ResetEvent(m_hEvent);
    }
}

void CWorkerFinishedEvent::Set() noexcept
{
    m_bFinished = true;
    if (m_hEvent != nullptr)
    {
        SetEvent(m_hEvent);
    }
}
