#pragma once

#include "tests/sequences/CWindowFacts.h"
#include "tests/windows/CRunningApplication.h"

// What the windows of a running application show.

// On the screen.
CRect GetWindowPlace(HWND hWnd);

// The size of the world that the panel shows.
CSize<int> GetPanelWorld(const CRunningApplication& application);

// Of the main window, apart from the settings file. Call it on the application's own thread.
CWindowFacts ReadWindow(HWND hMain, CKinetarium& application);
