#pragma once

#include <windows.h>

#include <chrono>
#include <string>

// What a person at the machine does, as input of the whole desktop: the system decides which window gets it.

// Moves the mouse to a point of the screen and lets it rest there for a moment. Throws std::runtime_error if it does
// not get there.
void MoveMouse(POINT point);

// Moves the mouse to a point, and presses and releases the left button there.
void ClickLeft(POINT point);

// Moves the mouse to a point, and presses and releases the right button there.
void ClickRight(POINT point);

// Presses and releases a key, given by its virtual-key code.
void PressKey(WORD uKey);

// Brings a window to the front, as a click on its title would.
void BringToFront(HWND hWindow);

// The text of a window of another program; empty if it does not answer in time.
std::wstring ReadText(HWND hWindow);

// The text for a failure message, with question marks for what is not plain ASCII.
std::string Narrow(const std::wstring& sText);
