#pragma once

#include <span>

// The sum that results from adding the speeds to it one by one, in order, in single precision: the same bits, but many
// at a time where that is possible. Any floats are allowed; speeds (not negative, seldom above the sum) are fast.
float AddInOrder(float fSum, std::span<const float> speeds);
