#pragma once

#include "simulation/CAtom.h"

class CRandom;

// Confirms that two atoms touch, pushes them apart until they just touch, and lets them exchange their velocity
// components along the line of centres as equal masses do; then both speeds are rescaled so that their sum is what it
// was before. (An elastic collision conserves the sum of squares instead; here the total speed of the world is what
// stays.) Approaching or receding makes no difference. The random generator separates atoms whose centres coincide.
// Changes position, velocity and speed of both; no error is reported.
void HandleAtomCollision(CAtom& a, CAtom& b, CRandom& random);
