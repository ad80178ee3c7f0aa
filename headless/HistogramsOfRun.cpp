#include "headless/HistogramsOfRun.h"

#include "headless/console/HeadlessError.h"
#include "headless/CRunObservers.h"
#include "headless/observed/CHistogramWriter.h"
#include "headless/options/COptions.h"

#include <algorithm>
#include <memory>
#include <string>

namespace
{

constexpr const char* c_sOption = "--histogram";
constexpr int c_iDefaultBins = 50;

// About one atom in 10,000 is faster (100,000 atoms in 9,999 x 9,999, after 300 iterations).
constexpr double c_dDefaultRange = 4; // mean speeds

double GetDefaultRange(double meanSpeed)
{
    // Atoms at rest have no scale.
    return meanSpeed > 0 ? std::clamp(c_dDefaultRange * meanSpeed, c_dLowestSpeed, c_dHighestSpeed) : 1.0;
}

[[noreturn]] void Refuse(std::uint64_t uIteration, const std::string& sReason)
{
    throw CUsageError("--histogram-at: iteration " + std::to_string(uIteration) + ' ' + sReason);
}

CHistogramTable MakeHistogramTable(const COptions& options, double meanSpeed)
{
    const CMoments moments = options.histogramAt.value_or(CMoments{{}, true});
    return {moments.iterations, moments.bEnd, static_cast<std::size_t>(options.histogramBins.value_or(c_iDefaultBins)),
            options.histogramRange.value_or(GetDefaultRange(meanSpeed))};
}

} // namespace

void AddHistograms(CRunObservers& observers, const COptions& options, double meanSpeed, IByteSink& standardOutput)
{
    if (options.histogram)
    {
        IByteSink* const pDirect = *options.histogram == c_sStandardOutput ? &standardOutput : nullptr;
        observers.Add(c_sOption, std::make_unique<CHistogramWriter>(*options.histogram, pDirect,
                                                                    MakeHistogramTable(options, meanSpeed)));
    }
}

void CheckHistogramIterations(const COptions& options, std::uint64_t uFirst, std::uint64_t uLast,
                              const CRunProgress& progress)
{
    if (!options.histogramAt || options.histogramAt->iterations.empty())
    {
        return;
    }
    const std::vector<std::uint64_t>& iterations = options.histogramAt->iterations;
    if (iterations.front() < uFirst && progress.count(c_sOption) == 0)
    {
        Refuse(iterations.front(), "is over: the checkpoint of --resume is from iteration " + std::to_string(uFirst));
    }
    if (iterations.back() > uLast)
    {
        Refuse(iterations.back(), "is never reached: the last one is " + std::to_string(uLast));
    }
}
