#pragma once

#include <array>
#include <cstddef>

// Everything that a user or the system can do to the main window in one step of a sequence.
enum class EnumAction : unsigned char
{
    Minimise,       // the system command
    Restore,        // the system command
    Maximise,       // the system command
    ShowMaximised,  // ShowWindow, as by a shortcut's "run maximised"
    ShowRestored,   // ShowWindow
    PlaceMaximised, // SetWindowPlacement, as by a program that arranges windows
    FullScreenKey,  // F11
    Escape,         // the key
    RightClick,     // values: place in the view, in thousandths of its client area
    TitleDoubleClick,
    Resize,             // values: left, top, right, bottom on the screen
    Wheel,              // values: the turn, 120 for a notch
    ScrollVertically,   // values: the low word of WM_VSCROLL
    ScrollHorizontally, // values: the low word of WM_HSCROLL
    Click,              // values: place in the view, in thousandths of its client area
    Start,              // the button
    Stop,               // the button
    SetWorldSize,       // values: width and height, typed into the panel
    Reopen,             // close the window and start the program again
    EndSession,         // the system's message; the window stays
    SecondWindow,       // another start of the program, closed again. values: the world size that is typed there
};

constexpr std::size_t c_uActionCount = static_cast<std::size_t>(EnumAction::SecondWindow) + 1;

struct CStep
{
    EnumAction eAction{};
    std::array<int, 4> values{};
    bool bMeanwhile = false; // arrives in the middle of what the step before it has begun

    bool operator==(const CStep&) const = default;
};

// The name of the enumerator.
const char* GetName(EnumAction eAction);

// How many of a step's values the action uses.
std::size_t GetValueCount(EnumAction eAction);
