#include "app/CStopGate.h"

#include <utility>

bool CStopGate::Defer_Close()
{
    if (MustWait())
    {
        m_Requests.close = true;
    }
    return MustWait();
}

bool CStopGate::Defer_ToggleFullScreen()
{
    if (MustWait())
    {
        m_Requests.toggleFullScreen = !m_Requests.toggleFullScreen;
    }
    return MustWait();
}

bool CStopGate::Defer_Click(const CPoint<int>& point)
{
    if (MustWait())
    {
        m_Requests.click = point;
    }
    return MustWait();
}

CStopGate::CRequests CStopGate::TakeRequests()
{
    if (MustWait())
    {
        return {};
    }
    CRequests requests = std::exchange(m_Requests, CRequests{});
    if (requests.close)
    {
        requests.toggleFullScreen = false;
    }
    if (requests.close || requests.toggleFullScreen)
    {
        requests.click.reset();
    }
    return requests;
}
