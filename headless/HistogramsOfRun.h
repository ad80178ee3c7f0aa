#pragma once

#include "headless/states/RunProgress.h"

#include <cstdint>

class CRunObservers;
struct COptions;
struct IByteSink;

// Adds the histograms that the options ask for, if any. meanSpeed is that of the atoms at the start of the whole run.
void AddHistograms(CRunObservers& observers, const COptions& options, double meanSpeed, IByteSink& standardOutput);

// Throws CUsageError for an iteration that a run from uFirst to uLast does not reach. A run that continues histograms
// may name those of its earlier pieces again.
void CheckHistogramIterations(const COptions& options, std::uint64_t uFirst, std::uint64_t uLast,
                              const CRunProgress& progress);
