#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

// Finds a program's windows, and points in them, from another process.

using WindowPredicate = std::function<bool(HWND)>;

// The name of the window's class; empty if there is no such window.
std::wstring ClassOf(HWND hWindow);

// The frontmost top-level window that meets the predicate; null if none does.
HWND FindTopWindow(const WindowPredicate& isWanted);
HWND FindDescendant(HWND hParent, const WindowPredicate& isWanted);
HWND FindDescendantByClass(HWND hParent, const std::wstring& sClass);

// The visible message box or system dialog that the window owns; null if none is open.
HWND FindDialogOf(HWND hOwner);

// The descendants of a window that meet the predicate; parents come before children.
std::vector<HWND> CollectDescendants(HWND hParent, const WindowPredicate& isWanted);

POINT MiddleOf(const RECT& rc);
// In screen pixels.
POINT MiddleOf(HWND hWindow);

// The nearest point that the mouse can reach.
POINT OnScreen(POINT point);
