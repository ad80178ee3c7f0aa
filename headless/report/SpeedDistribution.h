#pragma once

#include "headless/observed/CSpeedHistogram.h"

#include <optional>

class CAtoms;

// The speeds of all atoms at one moment.
struct CSpeedDistribution
{
    CSpeedHistogram histogram; // from 0 to the largest speed; its bins grow with the cube root of the number of atoms
    double mean{};
    double meanSquare{};
    double rayleighDistance{}; // see ComputeKolmogorovDistance
    double gammaDistance{};
};

// Empty if every atom is at rest or a speed is not finite: there is then no law to compare with.
std::optional<CSpeedDistribution> ComputeSpeedDistribution(const CAtoms& atoms);
