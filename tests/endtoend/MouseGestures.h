#pragma once

#include <windows.h>

// Longer pieces of mouse work than a click; like UserInput.h, as input of the whole desktop.

// Presses the left button at one point of the screen, moves to another in a few steps, and releases it there.
void DragLeft(POINT from, POINT to);

// Clicks the left button twice at a point, quicker than the system's time for a double click.
void DoubleClickLeft(POINT point);

// Turns the wheel at a point by a distance; 120 is one notch away from the person.
void RollWheel(POINT point, int iDelta);
