#pragma once

#include <cstdint>
#include <string>

class CSpeedHistogram;

// Histograms of speeds as CSV, a row for each bin: iteration, the two edges, the number of atoms, the density (see
// CSpeedHistogram::GetDensity). The last row counts the faster atoms; its upper edge is "inf", its density 0. Edges and
// densities are in the shortest form that reads back to the same double.
std::string GetHistogramHeader();
std::string FormatHistogram(std::uint64_t uIteration, const CSpeedHistogram& histogram);
