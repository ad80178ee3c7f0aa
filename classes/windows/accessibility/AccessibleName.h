#pragma once

#include <windows.h>

#include "classes/core/CWString.h"

// Tells the system by what name and description screen readers shall call a window of one of the system's own classes.
// False where the system cannot keep it; screen readers then look for a label that stands before the window.
bool SetAccessibleName(HWND hWnd, const CWString& sName, const CWString& sDescription);

// Takes it back, before the window is destroyed.
void ClearAccessibleName(HWND hWnd);
