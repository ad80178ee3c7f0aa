#pragma once

#include "tests/sequences/CWindowModel.h"

#include <cstdint>
#include <vector>

constexpr int c_iFewestSteps = 20;
constexpr int c_iMostSteps = 60;

// 20 to 60 steps, each of which the model's window can take. The same seed and screen give the same steps on every
// machine.
std::vector<CStep> GenerateSteps(std::uint64_t uSeed, const CScreenMeasures& screen);
