#pragma once

#include <windows.h>

#include "classes/core/CWString.h"

// Answers a screen reader's WM_GETOBJECT for the client area of a drop-down list; returns the result of the message.
// For systems that keep no names given to windows. The object is the system's own, with the name, the description, the
// role of a combo box, and the selected item as value.
LRESULT ListAccessible_Answer(HWND hList, WPARAM wParam, const CWString& sName, const CWString& sDescription);
