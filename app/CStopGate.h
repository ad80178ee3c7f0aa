#pragma once

#include "app/FullScreenRequest.h"
#include "classes/core/CFlagScope.h"
#include "classes/core/CPoint.h"

#include <optional>

// Keeps order among the requests that reach the main window while it waits for the simulation to end.
//
// This wait dispatches messages, because the worker may be blocked in a synchronous send to this thread. So a click, a
// key or a close can arrive in the middle of a stop. None of them may stop again (the thread would be joined twice) or
// start a second worker. They are remembered here and take effect when the stop is over. Each keeps its meaning: an
// Escape that waits still means to leave full screen, whatever the window has become meanwhile.
//
// Used on the user-interface thread only.
class CStopGate
{
public:
    // The request to carry out when a stop is over. At most one is set: a close outranks full screen, because it ends
    // every world; full screen outranks a start from a clicked point, because it starts a world of its own.
    struct CRequests
    {
        bool close = false;
        EnumFullScreenRequest fullScreen = EnumFullScreenRequest::None;
        std::optional<CPoint<int>> click; // client pixels of the main window
    };

    // Marks a stop for the life of this scope.
    class CStopping : CFlagScope
    {
    public:
        explicit CStopping(CStopGate& gate) : CFlagScope(gate.m_bStopping) {}
    };

    // Marks the change from one world to the next for the life of this scope: from the stop to the next start. A change
    // dispatches messages too. If a request among them began another change, a quick user could nest changes without
    // limit.
    class CChanging : CFlagScope
    {
    public:
        explicit CChanging(CStopGate& gate) : CFlagScope(gate.m_bChanging) {}
    };

    bool IsStopping() const { return m_bStopping; }

    // Whether a request that arrives now has to wait.
    bool MustWait() const { return m_bStopping || m_bChanging; }

    // During a stop or a change, each of these remembers the request and returns true: the caller then does nothing.
    // Otherwise it returns false.
    bool Defer_Close();
    bool Defer_FullScreen(EnumFullScreenRequest eRequest);
    bool Defer_Click(const CPoint<int>& point);

    // Returns the remembered requests and forgets them. During a stop or a change it returns none and forgets none.
    // Several requests about full screen become one, and none if the window, whose state is given, is already as it
    // asks; the last of several clicks counts.
    CRequests TakeRequests(bool bFullScreen);

private:
    bool m_bStopping = false;
    bool m_bChanging = false;
    CRequests m_Requests;
};
