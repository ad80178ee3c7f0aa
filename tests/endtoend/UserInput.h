#pragma once

#include <windows.h>

#include <chrono>
#include <string>

// A user's mouse and keyboard, as input to the whole desktop: the system decides which window gets it.

// Moves the mouse to a point of the screen and lets it rest there for a moment. Throws std::runtime_error if the mouse
// does not arrive there.
void MoveMouse(POINT point);

// Moves the mouse to a point, and presses and releases the left button there.
void ClickLeft(POINT point);

// Moves the mouse to a point, and presses and releases the right button there.
void ClickRight(POINT point);

// Presses and releases a key, given by its virtual-key code.
void PressKey(WORD uKey);

// Brings a window to the front, like a click on its title.
void BringToFront(HWND hWindow);

// The text of a window of another program; empty if it does not answer in time.
std::wstring ReadText(HWND hWindow);

// The text for a failure message; question marks replace characters outside ASCII.
std::string Narrow(const std::wstring& sText);
