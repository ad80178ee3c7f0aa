#pragma once

#include "classes/core/CFlagScope.h"
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

    // Marks a stop as going on.
    class CStopping : CFlagScope
    {
    public:
        explicit CStopping(CStopGate& gate) : CFlagScope(gate.m_bStopping) {}
    };

    // Marks the way from one world to the next as going on: a stop, and what comes between it and the next start. That
    // dispatches messages too; a request among them that began a way of its own would be followed by the next one, each
    // inside the one before, as deep as the user is quick.
    class CChanging : CFlagScope
    {
    public:
        explicit CChanging(CStopGate& gate) : CFlagScope(gate.m_bChanging) {}
    };

    bool IsStopping() const { return m_bStopping; }

    // Each returns true when a stop or a change is going on: the request is then remembered, and the caller has nothing
    // to do.
    bool Defer_Close();
    bool Defer_ToggleFullScreen();
    bool Defer_Click(const CPoint<int>& point);

    // Hands out what was remembered, and forgets it; nothing while it must still wait. A second toggle undoes the
    // first; of several clicks the last counts.
    CRequests TakeRequests();

private:
    bool MustWait() const { return m_bStopping || m_bChanging; }

    bool m_bStopping = false;
    bool m_bChanging = false;
    CRequests m_Requests;
};
