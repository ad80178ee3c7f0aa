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
    return !ThreadQuit_WasSeen();
}
