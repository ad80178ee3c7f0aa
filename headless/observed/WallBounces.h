#pragma once

#include "classes/core/CSize.h"

#include <array>
#include <cstddef>
#include <cstdint>

class CAtoms;

// The four walls of a world. The top one is at y = 0.
enum class EnumWall : std::size_t
{
    Left,
    Right,
    Top,
    Bottom
};

constexpr std::size_t c_uWalls = 4;

struct CWallBounces
{
    std::uint64_t count{};
    double impulse{}; // the sum of 2 |v| of the reflected component, for masses of 1; world units per iteration

    bool operator==(const CWallBounces&) const = default;
};

// By EnumWall.
using CBouncesOfWalls = std::array<CWallBounces, c_uWalls>;

// Adds the bounces that the next iteration makes: its first step moves and reflects every atom, and these are the
// comparisons of that step, with the same rounding. An atom that just touches a wall does not bounce. The impulses are
// added up in array order.
void AddNextBounces(CBouncesOfWalls& bounces, const CAtoms& atoms, const CSize<int>& world);

// The sum of the impulses on all walls, divided by their length and by the number of iterations (above 0): mass per
// iteration^2.
double ComputePressure(const CBouncesOfWalls& bounces, const CSize<int>& world, std::uint64_t uIterations);
