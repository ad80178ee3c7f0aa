#include "tests/sequences/CWindowModel.h"

#include <algorithm>

// How the model's state looks: the place of the view and of the world, the bars, the rectangles.

namespace
{
// What the panel and the status bar leave to the view in a framed window's client area.
constexpr CSize<int> c_Beside{260, 45};
constexpr int c_iInset = 10;
constexpr int c_iArrow = 10; // pixels that an arrow of a bar scrolls
constexpr int c_iThousand = 1000;

// The low words of WM_VSCROLL and WM_HSCROLL.
enum EnumRequest
{
    LineUp,
    LineDown,
    PageUp,
    PageDown,
    Top = 6,
    Bottom = 7,
};

int GetLastPosition(const CBarFacts& bar)
{
    return std::max(0, bar.iLength - std::max(bar.iPage, 1));
}

int ClampCentre(int iPosition, int iWorldLength)
{
    return std::max(c_iAtomRadius, std::min(iPosition, iWorldLength - c_iAtomRadius));
}
} // namespace

CSize<int> CWindowModel::GetClient() const
{
    if (m_bFullScreen)
    {
        return {m_Screen.monitor.GetWidth(), m_Screen.monitor.GetHeight()};
    }
    if (m_bMaximised)
    {
        return m_Screen.maximisedClient;
    }
    return {m_Normal.GetWidth() - m_Screen.frame.cx, m_Normal.GetHeight() - m_Screen.frame.cy};
}

// A view that is hardly larger than its bars shows nothing that could be right or wrong.
bool CWindowModel::HasView() const
{
    const CRect view = GetView().view;
    return !m_bMinimised && view.GetWidth() > 2 * m_Screen.bars.cx && view.GetHeight() > 2 * m_Screen.bars.cy;
}

// In a framed window the view is as large as the world and its bars, but never larger than the room that it has, and in
// the middle of that room. A bar is there if the world is larger than the room that the other bar leaves.
CViewFacts CWindowModel::GetView() const
{
    const CSize<int> client = GetClient();
    if (m_bFullScreen)
    {
        const int iLeft = (client.cx - m_World.cx) / 2;
        const int iTop = (client.cy - m_World.cy) / 2;
        return {{0, 0, client.cx, client.cy}, {}, {}, {iLeft, iTop, iLeft + m_World.cx, iTop + m_World.cy}};
    }
    const CSize<int> room{client.cx - c_Beside.cx, client.cy - c_Beside.cy};
    const auto needs = [](int iWorld, int iRoom, int iOtherBar) { return iWorld > iRoom - iOtherBar; };
    bool bVertical = needs(m_World.cy, room.cy, 0);
    const bool bHorizontal = needs(m_World.cx, room.cx, bVertical ? m_Screen.bars.cx : 0);
    bVertical = needs(m_World.cy, room.cy, bHorizontal ? m_Screen.bars.cy : 0);
    const CSize<int> bars{bVertical ? m_Screen.bars.cx : 0, bHorizontal ? m_Screen.bars.cy : 0};
    const CSize<int> size{std::min(m_World.cx + bars.cx, room.cx), std::min(m_World.cy + bars.cy, room.cy)};

    CViewFacts facts;
    const int iLeft = (room.cx - size.cx) / 2 + c_iInset;
    const int iTop = (room.cy - size.cy) / 2 + c_iInset;
    facts.view = {iLeft, iTop, iLeft + size.cx, iTop + size.cy};
    CPoint<int> origin; // without a bar the view has exactly the length of the world
    if (bVertical)
    {
        facts.vertical = CBarFacts{m_World.cy, size.cy - bars.cy, m_Scrolled.y};
        origin.y = -m_Scrolled.y;
    }
    if (bHorizontal)
    {
        facts.horizontal = CBarFacts{m_World.cx, size.cx - bars.cx, m_Scrolled.x};
        origin.x = -m_Scrolled.x;
    }
    facts.world = {origin.x, origin.y, origin.x + m_World.cx, origin.y + m_World.cy};
    return facts;
}

// A click in the middle of another step was aimed at the view as that step has found it.
CPoint<int> CWindowModel::GetPointInView(const CStep& step) const
{
    const CViewFacts view = step.bMeanwhile ? m_FirstView : GetView();
    const int cx = view.view.GetWidth() - (view.vertical ? m_Screen.bars.cx : 0);
    const int cy = view.view.GetHeight() - (view.horizontal ? m_Screen.bars.cy : 0);
    return {view.view.left + cx * step.values[0] / c_iThousand, view.view.top + cy * step.values[1] / c_iThousand};
}

// Every atom starts at the point of the world that lies under the click. Beside the view a click does nothing.
void CWindowModel::StartAt(const CPoint<int>& point)
{
    const CViewFacts view = GetView();
    const int iRight = view.view.right - (view.vertical ? m_Screen.bars.cx : 0);
    const int iBottom = view.view.bottom - (view.horizontal ? m_Screen.bars.cy : 0);
    if (point.x < view.view.left || point.x > iRight || point.y < view.view.top || point.y > iBottom)
    {
        return;
    }
    const CPoint<int> inWorld{point.x - view.view.left - view.world.left, point.y - view.view.top - view.world.top};
    BeginWorld();
    m_Burst = {ClampCentre(inWorld.x, m_World.cx), ClampCentre(inWorld.y, m_World.cy)};
}

// Does nothing in a direction without a bar.
void CWindowModel::Scroll(int CPoint<int>::*pDirection, int iDelta)
{
    const CViewFacts view = GetView();
    const std::optional<CBarFacts>& bar = pDirection == &CPoint<int>::x ? view.horizontal : view.vertical;
    if (bar && HasView())
    {
        m_Scrolled.*pDirection = std::clamp(bar->iPosition + iDelta, 0, GetLastPosition(*bar));
    }
}

void CWindowModel::ScrollByRequest(int CPoint<int>::*pDirection, int iRequest)
{
    const CViewFacts view = GetView();
    const std::optional<CBarFacts>& bar = pDirection == &CPoint<int>::x ? view.horizontal : view.vertical;
    if (!bar)
    {
        return;
    }
    switch (iRequest)
    {
    case LineUp:
        return Scroll(pDirection, -c_iArrow);
    case LineDown:
        return Scroll(pDirection, c_iArrow);
    case PageUp:
        return Scroll(pDirection, -bar->iPage);
    case PageDown:
        return Scroll(pDirection, bar->iPage);
    case Top:
        return Scroll(pDirection, -bar->iLength);
    case Bottom:
        return Scroll(pDirection, bar->iLength);
    default:
        break;
    }
}

CWindowFacts CWindowModel::GetFacts() const
{
    CWindowFacts facts;
    facts.bFullScreen = m_bFullScreen;
    facts.bMinimised = m_bMinimised;
    facts.bMaximised = m_bMaximised && !m_bMinimised && !m_bFullScreen;
    facts.bTitleBar = !m_bFullScreen;
    facts.bPanel = !m_bFullScreen;
    facts.bStatusBar = !m_bFullScreen;
    facts.bStartButton = !m_bFullScreen;
    facts.bRunning = m_bRunning;
    facts.panelWorld = m_PanelWorld;
    facts.world = m_World;
    facts.burst = m_Burst;
    facts.file = m_File;
    facts.other = m_Other;
    if (!m_bFullScreen)
    {
        facts.restored = m_Normal;
    }
    if (HasView())
    {
        facts.view = GetView();
    }
    if (!m_bMinimised)
    {
        facts.window = m_bFullScreen ? m_Screen.monitor : m_bMaximised ? m_Screen.maximised : m_Normal;
    }
    return facts;
}
