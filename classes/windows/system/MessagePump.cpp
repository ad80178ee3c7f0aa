#include "classes/windows/system/MessagePump.h"

#include "classes/windows/system/ThreadQuit.h"

namespace
{
thread_local int t_iDepth = 0;

class CDepthScope
{
public:
    CDepthScope() { ++t_iDepth; }
    CDepthScope(const CDepthScope&) = delete;
    CDepthScope& operator=(const CDepthScope&) = delete;
    ~CDepthScope() { --t_iDepth; }
};

void TakeQuit(const MSG& msg)
{
    ThreadQuit_SetSeen();
    if (t_iDepth > 1)
    {
        PostQuitMessage(static_cast<int>(msg.wParam));
    }
}

// Another thread may wait for the answer to a message that it has sent, while this one waits for that thread.
void DispatchSentMessages()
{
    MSG msg;
    PeekMessageW(&msg, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
}
} // namespace

bool MessagePump_RunPending(HWND hWnd, const MessageFilter& filter)
{
    const CDepthScope depth;
    MSG msg;
    while (!ThreadQuit_WasSeen() && PeekMessageW(&msg, hWnd, 0, 0, PM_REMOVE))
    {
        if (msg.message == WM_QUIT)
        {
            TakeQuit(msg);
            break;
        }
        if (filter && filter(msg))
        {
            continue;
        }
        TranslateMessage(&msg);
        DispatchMessageW(&msg);
    }
    if (ThreadQuit_WasSeen())
    {
        DispatchSentMessages();
        return false;
    }
    return true;
}
