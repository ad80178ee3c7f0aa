#pragma once

#include <functional>
#include <vector>

// Two laws for the speeds of a gas in a plane, each with one parameter. Speeds are not negative; the parameters are
// finite and above 0. A density is a probability per unit of speed, a distribution the probability of at most this
// speed.

// The Rayleigh law, which is that of Maxwell and Boltzmann in two dimensions, with this mean square speed m:
// density 2 v / m * exp(-v^2 / m).
double ComputeRayleighDensity(double speed, double meanSquare);
double ComputeRayleighDistribution(double speed, double meanSquare);

// The Gamma law of shape 4 with this mean: with t = mean / 4, density v^3 / (6 t^4) * exp(-v / t).
double ComputeGammaDensity(double speed, double mean);
double ComputeGammaDistribution(double speed, double mean);

// The distance of Kolmogorov and Smirnov: the largest difference between the distribution and the share of the sample
// at or below a value. From 0 to 1; 0 for an empty sample. The sample is sorted.
double ComputeKolmogorovDistance(const std::vector<double>& sorted, const std::function<double(double)>& distribution);
