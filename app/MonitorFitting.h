#pragma once

#include "classes/core/CRect.h"
#include "classes/core/CSize.h"

#include <cstddef>
#include <optional>
#include <vector>

// One monitor of the desktop, in virtual-screen pixels (which are negative left of and above the main one).
struct CMonitorArea
{
    CRect rectangle; // the whole monitor, task bar included
    bool isMain = false;
};

// The place where the window opens, and the reason.
struct CMonitorFit
{
    CRect window;                  // where the window opens
    std::size_t bestMonitor = 0;   // the one that shows most of the rectangle; ties go to the lower index
    std::size_t chosenMonitor = 0; // the one that the window was fitted to
    bool switchedToMain = false;   // the rectangle was on no monitor, or too small
    CRect monitor;                 // the chosen monitor's rectangle
};

// Finds the rectangle in which the main window opens.
//
// `saved` comes from the settings file and can hold anything; an empty or inverted one means that nothing is saved,
// and a window of the default size is centred on the primary screen of `primaryScreen` pixels. If the list of monitors
// is empty, the primary screen counts as the only monitor.
CMonitorFit FitRectangleOnMonitors(const CRect& saved, const std::vector<CMonitorArea>& monitors,
                                   const CSize<int>& primaryScreen);
