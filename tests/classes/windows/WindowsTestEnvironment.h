#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <thread>

#include "tests/classes/windows/CTestMainWindow.h"

// Small things that several of these tests need.

// Puts a text on the clipboard. False when another program holds it.
bool SetClipboardText(HWND hOwner, const std::wstring& sText);

// The text of any window, also of one of another thread.
std::wstring GetText(HWND hWnd);

// A key pressed and released in the window that has the focus, through the message queue and the window's pump.
void PressKey(CTestMainWindow& window, WPARAM wKey);

// Tab, with or without Shift held down.
void PressTab(CTestMainWindow& window, bool bShift);

// Types the text into the window as characters.
void TypeText(CTestMainWindow& window, HWND hWnd, const std::wstring& sText);

// A left click in the middle of the window.
void Click(CTestMainWindow& window, HWND hWnd);

// The colour of one pixel of a window's client area as it stands on the screen.
COLORREF GetShownPixel(HWND hWnd, int x, int y);

// A picture of a window's client area as it stands on the screen itself, where Direct2D presents.
CPicture CopyFromScreen(HWND hWnd);

// Pumps messages until the condition holds; false when it does not within five seconds.
bool PumpUntil(CTestMainWindow& window, const std::function<bool()>& condition);
