#pragma once

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
    EnterFullScreen,
    LeaveFullScreen,
};

// What the system commands to maximise and to restore mean for a window in this state.
EnumWindowChange GetMeaningOfMaximise(const CWindowState& state);
EnumWindowChange GetMeaningOfRestore(const CWindowState& state);
