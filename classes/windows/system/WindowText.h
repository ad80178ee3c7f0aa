#pragma once

#include <windows.h>

#include "classes/core/CWString.h"

// The window's text, of any length; empty if the window is gone.
CWString ReadWindowText(HWND hWnd);
