#pragma once

#include <windows.h>

#include "classes/core/CWString.h"

// Answers a screen reader's WM_GETOBJECT for the client area of a drop-down list, where the system keeps no names
// given to windows: the result of the message. The object is the system's own with the name, the description, the role
// of a combo box, and the chosen item as value.
LRESULT ListAccessible_Answer(HWND hList, WPARAM wParam, const CWString& sName, const CWString& sDescription);
