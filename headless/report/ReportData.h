#pragma once

#include <cstddef>
#include <string>

struct CReport;
struct CSpeedDistribution;

// How many speeds the curves of the laws are drawn through, from 0 to the largest.
constexpr std::size_t c_uLawPoints = 121;

// The speed of such a point.
double GetLawSpeed(const CSpeedDistribution& speeds, std::size_t uPoint);

// What the charts of a report show, as JSON that may stand inside of a script element of HTML: the courses are left out
// where a run has less than two points, the distribution where there is none.
std::string MakeReportData(const CReport& report);
