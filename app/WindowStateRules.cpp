#include "app/WindowStateRules.h"

EnumWindowChange GetMeaningOfMaximise(const CWindowState& state)
{
    return state.bFullScreen ? EnumWindowChange::Nothing : EnumWindowChange::EnterFullScreen;
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
