#pragma once

class CWString;

// What the simulation worker tells the outside. Both calls come from the worker's thread and are synchronous: the
// worker waits, and so leaves the atoms alone, until they return.
struct IFrameSink
{
    virtual ~IFrameSink() = default;

    // An iteration is done: draw the atoms.
    virtual void DrawFrame() = 0;

    // About once a second: the line for the status bar.
    virtual void ShowStatistics(const CWString& line) = 0;
};
