#pragma once

#include <windows.h>

// Mouse gestures longer than a click; like UserInput.h, as input to the whole desktop.

// Presses the left button at one point of the screen, moves to another in a few steps, and releases it there.
void DragLeft(POINT from, POINT to);

// Clicks the left button twice at a point, within the system's double-click time.
void DoubleClickLeft(POINT point);

// Turns the wheel at a point by a distance; 120 is one notch away from the person.
void RollWheel(POINT point, int iDelta);
