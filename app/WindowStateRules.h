#pragma once

#include "classes/core/CRect.h"

// What the main window does in the states that it can be in. Being maximised and being in full screen are two states:
// the title bar's button means full screen, but a window becomes maximised without it, by snapping or by a shortcut.

struct CWindowState
{
    bool bMinimised = false;
    bool bMaximised = false; // false while minimised
    bool bFullScreen = false;
};

enum class EnumWindowChange
{
    Nothing,
    SystemDefault, // what the system does for the command
    ShowAgain,     // the minimised window comes back in full screen
    EnterFullScreen,
    LeaveFullScreen,
};

// What the system commands to maximise and to restore mean for a window in this state.
EnumWindowChange GetMeaningOfMaximise(const CWindowState& state);
EnumWindowChange GetMeaningOfRestore(const CWindowState& state);

// The rectangle on the screen of a window whose saved placement is `placement`. The system counts a placement from the
// corner of the work area, so a task bar at the left or at the top moves it. `monitor` and `workArea` are those of the
// monitor where the window is; all in pixels.
CRect GetPlacementOnScreen(const CRect& placement, const CRect& monitor, const CRect& workArea);
