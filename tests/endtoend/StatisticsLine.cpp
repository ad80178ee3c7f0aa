#include "tests/endtoend/StatisticsLine.h"

#include <regex>

std::optional<CStatistics> ParseStatisticsLine(const std::wstring& sLine)
{
    static const std::wregex s_form(LR"(Iter = (\d+)   (\d+\.\d\d) ms = (\d+\.\d\d) FPS     )"
                                    LR"(velocity: min = \d+\.\d{3}   max = \d+\.\d{3}   tot = \d+\.\d{3}   )"
                                    LR"(avg = \d+\.\d{3}   collided = (\d+\.\d\d)%)");
    // The groups of the pattern, in order.
    enum
    {
        Iterations = 1,
        Milliseconds,
        Frames,
        Collided
    };
    std::wsmatch match;
    if (!std::regex_match(sLine, match, s_form))
    {
        return std::nullopt;
    }
    return CStatistics{std::stoull(match[Iterations].str()), std::stod(match[Milliseconds].str()),
                       std::stod(match[Frames].str()), std::stod(match[Collided].str()), sLine};
}
