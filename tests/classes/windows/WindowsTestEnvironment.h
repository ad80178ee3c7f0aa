#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <thread>

#include "tests/classes/windows/CTestMainWindow.h"

// Small helpers that several of these tests need.

// Puts a text on the clipboard. False if another program holds the clipboard.
bool SetClipboardText(HWND hOwner, const std::wstring& sText);

// The text of any window, including windows of other threads.
std::wstring GetText(HWND hWnd);

// Presses and releases a key in the window that has the focus, through the message queue and the window's pump.
void PressKey(CTestMainWindow& window, WPARAM wKey);

// Presses Tab, with or without Shift.
void PressTab(CTestMainWindow& window, bool bShift);

// Presses Tab while another key, such as VK_MENU, is down.
void PressTabWith(CTestMainWindow& window, int iModifier);

// Types the text into the window as characters.
void TypeText(CTestMainWindow& window, HWND hWnd, const std::wstring& sText);

// Clicks the left button in the middle of the window.
void Click(CTestMainWindow& window, HWND hWnd);

// The colour of one pixel of a window's client area on the screen.
COLORREF GetShownPixel(HWND hWnd, int x, int y);

// A picture of a window's client area, copied from the screen, where Direct2D presents.
CPicture CopyFromScreen(HWND hWnd);

// Pumps messages until the condition holds; false if it does not hold within five seconds.
bool PumpUntil(CTestMainWindow& window, const std::function<bool()>& condition);
