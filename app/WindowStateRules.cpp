#include "app/WindowStateRules.h"

EnumWindowChange GetMeaningOfMaximise(const CWindowState& state)
{
    if (!state.bFullScreen)
    {
        return EnumWindowChange::EnterFullScreen;
    }
    return state.bMinimised ? EnumWindowChange::ShowAgain : EnumWindowChange::Nothing;
}

EnumWindowChange GetMeaningOfRestore(const CWindowState& state)
{
    // Without this a minimised window could not be brought back from the task bar.
    if (state.bMinimised)
    {
        return EnumWindowChange::SystemDefault;
    }
    if (state.bFullScreen)
    {
        return EnumWindowChange::LeaveFullScreen;
    }
    return state.bMaximised ? EnumWindowChange::SystemDefault : EnumWindowChange::Nothing;
}

CRect GetPlacementOnScreen(const CRect& placement, const CRect& monitor, const CRect& workArea)
{
    const int dx = workArea.left - monitor.left;
    const int dy = workArea.top - monitor.top;
    return {placement.left + dx, placement.top + dy, placement.right + dx, placement.bottom + dy};
}
