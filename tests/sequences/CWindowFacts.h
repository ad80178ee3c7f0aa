#pragma once

#include "classes/core/CPoint.h"
#include "classes/core/CRect.h"
#include "classes/core/CSize.h"

#include <optional>
#include <string>

// What can be seen of the program from outside: once as the model predicts it, once as the real window shows it.

// A scroll bar that is shown, in pixels of the world.
struct CBarFacts
{
    int iLength = 0; // of the world
    int iPage = 0;
    int iPosition = 0;
    bool operator==(const CBarFacts&) const = default;
};

// The world's view in the main window's client area.
struct CViewFacts
{
    CRect view; // with its bars
    std::optional<CBarFacts> vertical;
    std::optional<CBarFacts> horizontal;
    CRect world; // in the view's client area
    bool operator==(const CViewFacts&) const = default;
};

struct CFileFacts
{
    bool bWhole = false; // holds every key exactly once
    CRect window;
    CSize<int> world;
    bool operator==(const CFileFacts&) const = default;
};

// What another window of the program showed when it was opened.
struct COtherWindowFacts
{
    CRect window;
    CSize<int> panelWorld;
    bool operator==(const COtherWindowFacts&) const = default;
};

struct CWindowFacts
{
    bool bFullScreen = false;
    bool bMinimised = false;
    bool bMaximised = false;       // false while minimised and in full screen
    std::optional<CRect> window;   // on the screen; none while minimised
    std::optional<CRect> restored; // where the system would restore it to; none in full screen
    bool bTitleBar = false;
    bool bPanel = false;
    bool bStatusBar = false;
    bool bStartButton = false;
    bool bRunning = false;
    CSize<int> panelWorld;            // the size of the world that the panel shows
    CSize<int> world;                 // its size in the simulation
    std::optional<CViewFacts> view;   // none while minimised, or without room for it
    std::optional<CPoint<int>> burst; // where the atoms have started, if that was a clicked point
    CFileFacts file;
    std::optional<COtherWindowFacts> other; // after the step that opened another window
};

// The farthest that an atom is from its start when the worker asks for the first frame, in world units.
constexpr int c_iBurstTolerance = 2;

// One line for each fact that is not as expected; empty if all are. Where no view or no burst is expected, any is
// right: atoms at random places are somewhere too.
std::string DescribeDifferences(const CWindowFacts& expected, const CWindowFacts& actual);
