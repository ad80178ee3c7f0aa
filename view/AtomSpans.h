#pragma once

#include "view/AtomScene.h"
#include "view/CAtomShapes.h"
#include "view/CPixelArea.h"

// Draws the visible atoms of scene, coloured by speed, into the pixels of the view: the same pixels as the system's
// ellipses in array order. Returns false if an atom has no shape, because its radius is not legal: then the pixels are
// no picture of the scene.
bool DrawAtoms_Spans(const CAtomScene& scene, const CAtomShapes& shapes, const CPixelArea& area);
