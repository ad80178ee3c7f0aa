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
    // What to do when a stop is over. At most one of them is set: a close outranks full screen, and full screen
    // outranks a start from a clicked point, because a close ends every world and full screen starts a world of its
    // own.
    struct CRequests
    {
        bool close = false;
        bool toggleFullScreen = false;
        std::optional<CPoint<int>> click; // client pixels of the main window
    };

    // Marks a stop for the life of this scope.
    class CStopping : CFlagScope
    {
    public:
        explicit CStopping(CStopGate& gate) : CFlagScope(gate.m_bStopping) {}
    };

    // Marks the change from one world to the next for the life of this scope: the stop, and everything up to the next
    // start. That dispatches messages too. If a request among them began a change of its own, a quick user could nest
    // changes without limit.
    class CChanging : CFlagScope
    {
    public:
        explicit CChanging(CStopGate& gate) : CFlagScope(gate.m_bChanging) {}
    };

    bool IsStopping() const { return m_bStopping; }

    // Each remembers the request and returns true during a stop or a change; the caller then does nothing. Otherwise
    // each returns false.
    bool Defer_Close();
    bool Defer_ToggleFullScreen();
    bool Defer_Click(const CPoint<int>& point);

    // Returns the remembered requests and forgets them; during a stop or a change it returns none and forgets none. A
    // second toggle undoes the first; of several clicks the last counts.
    CRequests TakeRequests();

private:
    bool MustWait() const { return m_bStopping || m_bChanging; }

    bool m_bStopping = false;
    bool m_bChanging = false;
    CRequests m_Requests;
};
