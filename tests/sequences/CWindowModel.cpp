#include "tests/sequences/CWindowModel.h"

// Which steps are possible, and how each changes the state. What the state looks like is in CWindowModel_Facts.cpp.

namespace
{
// Whether the step may change from one world to the next: what arrives meanwhile has to wait.
bool MayChangeWorld(EnumAction eAction)
{
    switch (eAction)
    {
    case EnumAction::Restore:
    case EnumAction::Maximise:
    case EnumAction::FullScreenKey:
    case EnumAction::Escape:
    case EnumAction::RightClick:
    case EnumAction::TitleDoubleClick:
    case EnumAction::Click:
    case EnumAction::Stop:
        return true;
    default:
        return false;
    }
}

bool IsFullScreenRequest(EnumAction eAction)
{
    return eAction == EnumAction::FullScreenKey || eAction == EnumAction::Escape || eAction == EnumAction::Maximise ||
           eAction == EnumAction::Restore;
}
} // namespace

CWindowModel::CWindowModel(const CScreenMeasures& screen) : m_Screen(screen) {}

bool CWindowModel::CanTake(const CStep& step) const
{
    return step.bMeanwhile ? CanTakeMeanwhile(step) : CanTakeNow(step.eAction);
}

bool CWindowModel::CanTakeMeanwhile(const CStep& step) const
{
    if (!m_eFirst || !MayChangeWorld(*m_eFirst) || m_bGroupEnded)
    {
        return false;
    }
    if (step.eAction == EnumAction::Restore)
    {
        // A minimised window comes back at once, before the change and not after it. Beside other requests that wait,
        // the program keeps one that does what they do to full screen, and a maximised window may stay maximised.
        return !m_bFirstFoundMinimised && m_iMeanwhile == 0;
    }
    // A click is not kept beside a request for full screen: both begin a world.
    const bool bClick = step.eAction == EnumAction::Click && m_iMeanwhile == 0 && m_bFirstFoundView;
    return bClick || step.eAction == EnumAction::Reopen || IsFullScreenRequest(step.eAction);
}

bool CWindowModel::CanTakeNow(EnumAction eAction) const
{
    switch (eAction)
    {
    case EnumAction::Minimise:
        return !m_bMinimised;
    case EnumAction::PlaceMaximised:
        return !m_bMaximised || m_bMinimised; // Wine moves a window that is maximised already
    case EnumAction::TitleDoubleClick:
        return !m_bMinimised && !m_bFullScreen;
    case EnumAction::Resize:
        return IsNormal();
    case EnumAction::RightClick:
    case EnumAction::Click:
    case EnumAction::Wheel:
    case EnumAction::ScrollVertically:
    case EnumAction::ScrollHorizontally:
        return HasView();
    case EnumAction::Start:
        return !m_bRunning && !m_bMinimised && !m_bFullScreen;
    case EnumAction::Stop:
        return m_bRunning && !m_bMinimised && !m_bFullScreen;
    case EnumAction::SetWorldSize:
        return !m_bMinimised && !m_bFullScreen;
    default:
        return true;
    }
}

std::optional<CTakenStep> CWindowModel::Take(const CStep& step)
{
    if (!CanTake(step))
    {
        return std::nullopt;
    }
    m_Other.reset();
    if (!step.bMeanwhile)
    {
        m_eFirst = step.eAction;
        m_bFirstFoundMinimised = m_bMinimised;
        m_bGroupEnded = false;
        m_iMeanwhile = 0;
        m_bFirstFoundView = HasView();
        m_FirstView = GetView();
    }
    const CTakenStep taken{step, GetPointInView(step)};
    TakeWindowState(step);
    TakeFullScreen(step.eAction);
    TakeInput(step);
    TakeSimulation(taken);
    TakeProcess(step);
    Scroll(&CPoint<int>::x, 0); // what was scrolled away comes back if the world ends there now
    Scroll(&CPoint<int>::y, 0);
    m_iMeanwhile += step.bMeanwhile ? 1 : 0;
    const bool bEndsGroup = step.eAction == EnumAction::Restore || !IsFullScreenRequest(step.eAction);
    m_bGroupEnded = m_bGroupEnded || (step.bMeanwhile && bEndsGroup);
    return taken;
}

void CWindowModel::TakeWindowState(const CStep& step)
{
    switch (step.eAction)
    {
    case EnumAction::Minimise:
        m_bMinimised = true;
        break;
    case EnumAction::ShowMaximised:
    case EnumAction::PlaceMaximised:
        m_bMinimised = false;
        m_bMaximised = m_bMaximised || !m_bFullScreen; // nothing is larger than full screen
        break;
    case EnumAction::ShowRestored:
        m_bMaximised = m_bMaximised && (m_bMinimised || m_bFullScreen);
        m_bMinimised = false;
        break;
    case EnumAction::Resize:
        m_Normal = {step.values[0], step.values[1], step.values[2], step.values[3]};
        break;
    default:
        break;
    }
}

void CWindowModel::TakeFullScreen(EnumAction eAction)
{
    switch (eAction)
    {
    case EnumAction::Restore:
        Restore();
        break;
    case EnumAction::Maximise:
        m_bMinimised = m_bMinimised && !m_bFullScreen;
        SetFullScreen(true);
        break;
    case EnumAction::TitleDoubleClick:
        if (m_bMaximised)
        {
            m_bMaximised = false;
            break;
        }
        SetFullScreen(true);
        break;
    case EnumAction::FullScreenKey:
    case EnumAction::RightClick:
        SetFullScreen(!m_bFullScreen);
        break;
    case EnumAction::Escape:
        SetFullScreen(false);
        break;
    default:
        break;
    }
}

// From being minimised back to what was before, from full screen to the framed window, and from that to its own size.
void CWindowModel::Restore()
{
    if (m_bMinimised)
    {
        m_bMinimised = false;
    }
    else if (m_bFullScreen)
    {
        SetFullScreen(false);
    }
    else
    {
        m_bMaximised = false;
    }
}

void CWindowModel::TakeInput(const CStep& step)
{
    switch (step.eAction)
    {
    case EnumAction::Wheel:
        Scroll(&CPoint<int>::y, -step.values[0] / 2);
        break;
    case EnumAction::ScrollVertically:
        ScrollByRequest(&CPoint<int>::y, step.values[0]);
        break;
    case EnumAction::ScrollHorizontally:
        ScrollByRequest(&CPoint<int>::x, step.values[0]);
        break;
    case EnumAction::SetWorldSize:
        m_PanelWorld = {step.values[0], step.values[1]};
        break;
    default:
        break;
    }
}

void CWindowModel::TakeSimulation(const CTakenStep& taken)
{
    switch (taken.step.eAction)
    {
    case EnumAction::Click:
        StartAt(taken.point);
        break;
    case EnumAction::Start:
        BeginWorld();
        break;
    case EnumAction::Stop:
        m_bRunning = false;
        break;
    default:
        break;
    }
}

void CWindowModel::TakeProcess(const CStep& step)
{
    switch (step.eAction)
    {
    case EnumAction::EndSession:
        Save();
        m_bMinimised = m_bMinimised && m_bFullScreen;
        m_bMaximised = m_bMaximised && m_bFullScreen;
        m_bRunning = false;
        break;
    case EnumAction::Reopen:
    {
        Save();
        const CFileFacts file = m_File;
        *this = CWindowModel(m_Screen);
        m_File = file;
        m_Normal = file.window;
        m_PanelWorld = file.world;
        m_World = file.world;
        break;
    }
    case EnumAction::SecondWindow:
        m_Other = COtherWindowFacts{m_File.window, m_File.world};
        m_File.world = {step.values[0], step.values[1]};
        m_File.bWhole = true;
        break;
    default:
        break;
    }
}

// Each change starts a new world, and shows the window if it is minimised.
void CWindowModel::SetFullScreen(bool bFullScreen)
{
    if (bFullScreen != m_bFullScreen)
    {
        m_bFullScreen = bFullScreen;
        m_bMinimised = false;
        BeginWorld();
    }
}

void CWindowModel::BeginWorld()
{
    m_bRunning = true;
    m_World = m_bFullScreen ? GetClient() : m_PanelWorld;
    m_Burst.reset();
    m_File.world = m_PanelWorld;
    m_File.bWhole = true;
}

void CWindowModel::Save()
{
    m_File = {true, m_Normal, m_PanelWorld};
}
