#pragma once

#include <windows.h>

#include "classes/core/CWString.h"

// The window's text, whatever its length; empty for a window that is gone.
CWString ReadWindowText(HWND hWnd);
