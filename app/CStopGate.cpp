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

bool CStopGate::Defer_FullScreen(EnumFullScreenRequest eRequest)
{
    if (MustWait())
    {
        m_Requests.fullScreen = Combine(m_Requests.fullScreen, eRequest);
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

CStopGate::CRequests CStopGate::TakeRequests(bool bFullScreen)
{
    if (MustWait())
    {
        return {};
    }
    CRequests requests = std::exchange(m_Requests, CRequests{});
    if (requests.close || !HasEffect(requests.fullScreen, bFullScreen))
    {
        requests.fullScreen = EnumFullScreenRequest::None;
    }
    if (requests.close || requests.fullScreen != EnumFullScreenRequest::None)
    {
        requests.click.reset();
    }
    return requests;
}
