#pragma once

#include "view/AtomScene.h"

#include <windows.h>

// The plain form of the GDI painter's atoms, which every faster one must equal pixel by pixel: the system draws each
// atom, visible or not, in array order, with the DC pen and the DC brush in the colour of its class.
void DrawAtoms_Plain(HDC hDc, const CAtomScene& scene);
