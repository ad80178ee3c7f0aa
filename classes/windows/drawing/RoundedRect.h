#pragma once

#include <windows.h>

// How much of the pixel (x, y), both from 0, a rounded rectangle of iWidth x iHeight pixels covers: 0 to 1, with a
// soft edge of one pixel at the corners. The radius is in pixels.
double GetRoundedCoverage(int x, int y, int iWidth, int iHeight, int iRadius);

// Fills a rectangle with rounded, smooth corners. The corners are blended with the present content of the context.
void FillRoundedRect(HDC hDc, const RECT& rc, int iRadius, COLORREF cr);

// A face with a border around it, iBorder pixels wide, that follows the corners.
void FillRoundedFrame(HDC hDc, const RECT& rc, int iRadius, int iBorder, COLORREF crBorder, COLORREF crFace);
