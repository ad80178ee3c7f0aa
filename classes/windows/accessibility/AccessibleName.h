#pragma once

#include <windows.h>

#include "classes/core/CWString.h"

// Gives the system the name and description of a window of one of the system's own classes, for screen readers. False
// if the system cannot keep them; screen readers then look for a label before the window.
bool SetAccessibleName(HWND hWnd, const CWString& sName, const CWString& sDescription);

// Removes name and description; call it before the window is destroyed.
void ClearAccessibleName(HWND hWnd);
