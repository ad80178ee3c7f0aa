#pragma once

#include <windows.h>

#include <functional>

// Draws on the given context, in the coordinates of the window that the drawing is for.
using OffScreenDrawing = std::function<void(HDC hDc)>;

// Lets draw fill the rectangle rc (pixels) of the target in memory and copies the result in one piece, so that no
// half-drawn content ever shows. Returns false, without calling draw, if there is no target, rc is empty or there is no
// memory for the picture. If draw throws, nothing is copied.
bool DrawOffScreen(HDC hTarget, const RECT& rc, const OffScreenDrawing& draw);

// The same for a window that must show something in any case: without memory, draw works on the target itself.
void DrawOffScreenIfPossible(HDC hTarget, const RECT& rc, const OffScreenDrawing& draw);
