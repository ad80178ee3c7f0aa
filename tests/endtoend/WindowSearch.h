#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

// Finding windows of a program and places in them, from outside.

using WindowPredicate = std::function<bool(HWND)>;

// The name of the window's class; empty if there is no such window.
std::wstring ClassOf(HWND hWindow);

// The first window, from the front backwards, that meets the predicate; null if none does.
HWND FindTopWindow(const WindowPredicate& isWanted);
HWND FindDescendant(HWND hParent, const WindowPredicate& isWanted);
HWND FindDescendantByClass(HWND hParent, const std::wstring& sClass);

// The visible message box or dialog of the system that belongs to the window; null if none is open.
HWND FindDialogOf(HWND hOwner);

// The windows below one that meet the predicate, each before those inside it.
std::vector<HWND> CollectDescendants(HWND hParent, const WindowPredicate& isWanted);

POINT MiddleOf(const RECT& rc);
// In pixels of the screen.
POINT MiddleOf(HWND hWindow);

// The nearest point that the mouse can reach.
POINT OnScreen(POINT point);
