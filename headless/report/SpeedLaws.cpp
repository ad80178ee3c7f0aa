#include "headless/report/SpeedLaws.h"

#include <algorithm>
#include <cmath>

namespace
{

constexpr double c_dShape = 4;

} // namespace

double ComputeRayleighDensity(double speed, double meanSquare)
{
    return 2 * speed / meanSquare * std::exp(-speed * speed / meanSquare);
}

double ComputeRayleighDistribution(double speed, double meanSquare)
{
    return -std::expm1(-speed * speed / meanSquare);
}

double ComputeGammaDensity(double speed, double mean)
{
    const double scale = mean / c_dShape;
    const double x = speed / scale;
    return x * x * x / 6 * std::exp(-x) / scale;
}

// The shape is a whole number, so the law is that of Erlang, whose distribution has a finite sum.
double ComputeGammaDistribution(double speed, double mean)
{
    const double x = speed / mean * c_dShape;
    return 1 - std::exp(-x) * (1 + x * (1 + x / 2 * (1 + x / 3)));
}

double ComputeKolmogorovDistance(const std::vector<double>& sorted, const std::function<double(double)>& distribution)
{
    const auto count = static_cast<double>(sorted.size());
    double distance = 0;
    double below = 0; // how many values of the sample came before
    for (const double value : sorted)
    {
        const double expected = distribution(value);
        distance = std::max({distance, std::abs(expected - below / count), std::abs((below + 1) / count - expected)});
        ++below;
    }
    return distance;
}
