#pragma once

#include "classes/core/CPoint.h"

#include <optional>

// Keeps order among the requests that reach the main window while it waits for the simulation to end.
//
// That wait dispatches messages, because the worker may be blocked in a synchronous send to this very thread. So a
// click, a key or a close can arrive in the middle of a stop. None of them may stop again (the thread would be joined
// twice) or start a second worker; all of them are remembered here and take effect when the stop is over.
//
// Used on the user-interface thread only.
class CStopGate
{
public:
    // What to do when a stop is over. At most one of them holds: closing outranks full screen, which outranks a start
    // from a clicked point, since each of the former ends with the latter's world anyway.
    struct CRequests
    {
        bool close = false;
        bool toggleFullScreen = false;
        std::optional<CPoint<int>> click; // client pixels of the main window
    };

    // Marks a stop as going on for as long as it lives.
    class CStopping
    {
    public:
        explicit CStopping(CStopGate& gate) : m_Gate(gate) { m_Gate.m_bStopping = true; }
        ~CStopping() { m_Gate.m_bStopping = false; }
        CStopping(const CStopping&) = delete;
        CStopping& operator=(const CStopping&) = delete;

    private:
        CStopGate& m_Gate;
    };

    bool IsStopping() const { return m_bStopping; }

    // Each returns true when a stop is going on: the request is then remembered, and the caller has nothing to do.
    bool Defer_Close();
    bool Defer_ToggleFullScreen();
    bool Defer_Click(const CPoint<int>& point);

    // Hands out what was remembered, and forgets it. A second toggle undoes the first; of several clicks the last
    // counts.
    CRequests TakeRequests();

private:
    bool m_bStopping = false;
    CRequests m_Requests;
};
