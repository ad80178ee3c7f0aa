#pragma once

#include <cstdint>
#include <optional>
#include <string>

// The numbers of a statistics line that the tests look at.
struct CStatistics
{
    std::uint64_t iterations = 0; // since the start of the run
    double millisecondsPerPass = 0.0;
    double framesPerSecond = 0.0;
    double collidedPercent = 0.0;
    std::wstring line;
};

// Nothing if the text is not a whole statistics line, blank for blank.
std::optional<CStatistics> ParseStatisticsLine(const std::wstring& sLine);
