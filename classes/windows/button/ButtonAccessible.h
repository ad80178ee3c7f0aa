#pragma once

#include <windows.h>

#include <string>

#include "classes/core/CWString.h"

// A button as a screen reader sees it.
struct IAccessibleButton
{
    virtual CWString GetAccessibleName() const = 0;
    virtual CWString GetAccessibleValue() const = 0;
    virtual CWString GetAccessibleDescription() const = 0;
    virtual std::wstring* GetDebugLog() const = 0;

protected:
    ~IAccessibleButton() = default;
};

// The button behind the window; null once it is gone.
using FindButtonFunction = const IAccessibleButton* (*)(HWND hWnd);

// Answers a screen reader's WM_GETOBJECT for the client area of a button; returns the result of the message. The object
// is the system's own for that window, but name, value, role, state, description and default action are the button's.
// The screen reader may keep the object longer than the button lives: each answer calls pFind first.
LRESULT ButtonAccessible_Answer(HWND hButton, WPARAM wParam, FindButtonFunction pFind);
