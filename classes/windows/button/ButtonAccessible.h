#pragma once

#include <windows.h>

// Answers a screen reader's WM_GETOBJECT for the client area of a CWndButton: the result of the message. The object
// that is handed out is the system's own for that window, with the button's name, role, state, description and
// default action in place of what the system cannot know.
LRESULT ButtonAccessible_Answer(HWND hButton, WPARAM wParam);
