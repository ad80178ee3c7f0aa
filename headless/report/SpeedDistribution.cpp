#include "headless/report/SpeedDistribution.h"

#include "headless/report/SpeedLaws.h"
#include "simulation/CAtoms.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace
{

constexpr double c_dMostBins = 60;

// The rule of Rice: twice the cube root.
std::size_t GetBinCount(std::size_t uSpeeds)
{
    return static_cast<std::size_t>(std::min(std::ceil(2 * std::cbrt(static_cast<double>(uSpeeds))), c_dMostBins));
}

} // namespace

std::optional<CSpeedDistribution> ComputeSpeedDistribution(const CAtoms& atoms)
{
    std::vector<double> speeds;
    speeds.reserve(static_cast<std::size_t>(atoms.GetCount()));
    double sum = 0;
    double squares = 0;
    for (std::int32_t index = 0; index < atoms.GetCount(); ++index)
    {
        const auto speed = static_cast<double>(atoms[index].speed);
        speeds.push_back(speed);
        sum += speed;
        squares += speed * speed;
    }
    // NaN does not suit the sorting.
    if (!std::isfinite(sum) || !(sum > 0))
    {
        return std::nullopt;
    }
    std::sort(speeds.begin(), speeds.end());
    const auto count = static_cast<double>(speeds.size());
    const double mean = sum / count;
    const double meanSquare = squares / count;
    // The largest speed belongs to the last bin.
    const double range = std::nextafter(speeds.back(), std::numeric_limits<double>::infinity());
    CSpeedHistogram histogram(GetBinCount(speeds.size()), range);
    histogram.Add(atoms);
    return CSpeedDistribution{
        std::move(histogram), mean, meanSquare,
        ComputeKolmogorovDistance(
            speeds, [meanSquare](double speed) { return ComputeRayleighDistribution(speed, meanSquare); }),
        ComputeKolmogorovDistance(speeds, [mean](double speed) { return ComputeGammaDistribution(speed, mean); })};
}
