#pragma once

#include "simulation/CAtom.h"

class CRandom;

// If two atoms touch: pushes them apart until they just touch, exchanges their velocity components along the line of
// centres, as equal masses do, and rescales both speeds so that their sum is the one before. (An elastic collision
// conserves the sum of squares; here the total speed of the world is conserved.) Whether they approach or recede makes
// no difference. The random generator separates atoms whose centres coincide. Changes position, velocity and speed of
// both. Reports no error. Iterations do not call it: the pair kernels include the same response (CollisionResponse.h).
void HandleAtomCollision(CAtom& a, CAtom& b, CRandom& random);
