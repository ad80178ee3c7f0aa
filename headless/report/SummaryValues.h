#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct CRunResults;
struct CSettings;

enum class EnumSummaryKind : std::uint8_t
{
    Number,
    Text,
    Flag,   // "true" or "false"
    Missing // there is no value
};

// A value of the summary, for every form of it.
struct CSummaryValue
{
    const char* sKey;  // its name in JSON and CSV
    std::string name;  // its name in the text form; empty: the text form leaves it out
    std::string shown; // its value in the text form
    EnumSummaryKind eKind{};
    std::string data; // its value in the other forms, in UTF-8; empty where it is missing
};

// All values of a finished run, in the order of the summary. sCommand repeats the run.
std::vector<CSummaryValue> MakeSummaryValues(const CSettings& settings, const CRunResults& results,
                                             const std::string& sCommand);
