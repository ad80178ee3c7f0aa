#pragma once

class CWString;

// The calls of the simulation worker to its window. Both come from the worker's thread and are synchronous: the worker
// waits until they return, and does not touch the atoms meanwhile.
struct IFrameSink
{
    virtual ~IFrameSink() = default;

    // Draws the atoms, after an iteration.
    virtual void DrawFrame() = 0;

    // Shows the line in the status bar; comes about once a second.
    virtual void ShowStatistics(const CWString& line) = 0;
};
