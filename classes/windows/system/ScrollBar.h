#pragma once

#include "classes/core/ScrollRequest.h"

#include <windows.h>

// Reads range, page, position and the dragged position of a window's bar (SB_HORZ or SB_VERT).
CScrollBarState ReadScrollBar(HWND hWnd, int iBar);

// Stores range, page and position of a window's bar and redraws it. The system keeps the position inside the range.
void WriteScrollBar(HWND hWnd, int iBar, const CScrollBarState& bar);

// Gives the bar an empty range, so that the system greys it instead of hiding it. Redraws nothing.
void ClearScrollBar(HWND hWnd, int iBar);
