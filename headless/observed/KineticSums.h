#pragma once

class CAtoms;

// Sums over all atoms, whose masses are 1. They are added up in double precision and in array order, so they have the
// same bits on every machine.

// The mean of v^2 / 2 per atom, in (world units per iteration)^2; 0 without atoms.
double ComputeKineticEnergy(const CAtoms& atoms);

// The sums of vx and of vy, in world units per iteration.
struct CMomentum
{
    double x{};
    double y{};
};

CMomentum ComputeMomentum(const CAtoms& atoms);
