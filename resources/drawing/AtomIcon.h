#pragma once

#include "resources/drawing/CImage.h"

// The program's icon at one size: a red, a grey and a green atom on a black tile with round corners.
CImage DrawAtomIcon(int iSide);
