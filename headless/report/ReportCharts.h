#pragma once

#include <string>

struct CReport;

// The two sections of a report's page that have charts, as HTML.

// The courses of energy, collisions and speeds. A run with a single point has its values in words.
std::string MakeCourseSection(const CReport& report);

// The histogram of the speeds beside the two laws, and how far these are from it.
std::string MakeSpeedSection(const CReport& report);
