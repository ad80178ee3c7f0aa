#include "app/CStopGate.h"

#include <utility>

bool CStopGate::Defer_Close()
{
    if (m_bStopping)
        m_Requests.close = true;
    return m_bStopping;
}

bool CStopGate::Defer_ToggleFullScreen()
{
    if (m_bStopping)
        m_Requests.toggleFullScreen = !m_Requests.toggleFullScreen;
    return m_bStopping;
}

bool CStopGate::Defer_Click(const CPoint<int>& point)
{
    if (m_bStopping)
        m_Requests.click = point;
    return m_bStopping;
}

CStopGate::CRequests CStopGate::TakeRequests()
{
    CRequests requests = std::exchange(m_Requests, CRequests{});
    if (requests.close)
        requests.toggleFullScreen = false;
    if (requests.close || requests.toggleFullScreen)
        requests.click.reset();
    return requests;
}
