#pragma once

#include "simulation/IFinishedEvent.h"
#include "simulation/IFrameSink.h"

#include <atomic>
#include <windows.h>

// The worker's way to the window: two synchronous messages. The worker waits until the user-interface thread has
// handled them, which is what keeps the atoms still while they are drawn.
class CWindowFrameSink : public IFrameSink
{
public:
    CWindowFrameSink(HWND hView, HWND hStatusBar) : m_hView(hView), m_hStatusBar(hStatusBar) {}

    void DrawFrame() override;
    void ShowStatistics(const CWString& line) override;

private:
    HWND m_hView;
    HWND m_hStatusBar;
};

// The worker's sign that its loop has ended: a system event for those who wait, and a flag that still tells when the
// system had no event to give.
class CWorkerFinishedEvent : public IFinishedEvent
{
public:
    CWorkerFinishedEvent(HANDLE hEvent, std::atomic<bool>& finished) : m_hEvent(hEvent), m_bFinished(finished) {}

    void Reset() noexcept override;
    void Set() noexcept override;

private:
    HANDLE m_hEvent;
    std::atomic<bool>& m_bFinished;
};
