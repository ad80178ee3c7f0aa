#pragma once

#include "classes/core/CPoint.h"
#include "classes/core/CRect.h"
#include "simulation/CAtom.h"

// Whole-pixel rectangle that encloses an atom's circle, right and bottom outside: the corners left + x -+ r and
// top + y -+ r, summed in single precision and rounded half away from zero. \p ptWorld is the world's left top corner
// in view coordinates. Corners outside the range of an integer become its nearest end.
CRect GetEllipseRect(const CAtom& atom, const CPoint<int>& ptWorld);
