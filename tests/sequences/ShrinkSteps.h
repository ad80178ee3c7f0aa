#pragma once

#include "tests/sequences/CStep.h"

#include <functional>
#include <vector>

// Returns a shortest form of a failing sequence: one that still fails, and passes if any one of its steps is left out.
// Source: Zeller and Hildebrandt, "Simplifying and Isolating Failure-Inducing Input", 2002, the algorithm ddmin. A step
// that came in the middle of another one comes after it where the sequence fails so too.
std::vector<CStep> ShrinkSteps(std::vector<CStep> steps, const std::function<bool(const std::vector<CStep>&)>& fails);
