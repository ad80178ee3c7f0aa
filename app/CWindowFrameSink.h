#pragma once

#include "simulation/IFinishedEvent.h"
#include "simulation/IFrameSink.h"

#include <atomic>
#include <windows.h>

// Sends the worker's frames and statistics to the windows by synchronous messages. The worker waits until the
// user-interface thread has handled them, so the atoms do not move while they are drawn.
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

// Tells that the worker's loop has ended: by a system event to wait for, and by a flag in case the system had no event
// to give. The end of the object's life sets both, because the loop may not even have begun.
class CWorkerFinishedEvent final : public IFinishedEvent
{
public:
    CWorkerFinishedEvent(HANDLE hEvent, std::atomic<bool>& finished) : m_hEvent(hEvent), m_bFinished(finished) {}
    ~CWorkerFinishedEvent() override { Set(); }
    CWorkerFinishedEvent(const CWorkerFinishedEvent&) = delete;
    CWorkerFinishedEvent& operator=(const CWorkerFinishedEvent&) = delete;

    void Reset() noexcept override;
    void Set() noexcept override;

private:
    HANDLE m_hEvent;
    std::atomic<bool>& m_bFinished;
};
