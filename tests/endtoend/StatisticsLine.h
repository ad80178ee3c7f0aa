#pragma once

#include <cstdint>
#include <optional>
#include <string>

// The numbers of a statistics line that the tests use.
struct CStatistics
{
    std::uint64_t iterations = 0; // since the start of the run
    double millisecondsPerPass = 0.0;
    double framesPerSecond = 0.0;
    double collidedPercent = 0.0;
    std::wstring line;
};

// nullopt if the text is not exactly a statistics line.
std::optional<CStatistics> ParseStatisticsLine(const std::wstring& sLine);
