#pragma once

#include "classes/core/CPoint.h"
#include "headless/options/EnumSummaryForm.h"
#include "headless/options/OptionValues.h"
#include "settings/CSettings.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

constexpr std::uint64_t c_uDefaultIterations = 1000;

// The command line. An empty option was not given. Paths are UTF-8.
struct COptions
{
    std::optional<int> width;
    std::optional<int> height;
    std::optional<int> atoms;
    std::optional<int> minRadius;
    std::optional<int> maxRadius;
    std::optional<std::uint64_t> seed;
    std::optional<CPoint<int>> startAt;
    std::uint64_t iterations = c_uDefaultIterations;
    std::optional<int> threads;
    std::optional<std::string> loadState;
    std::optional<std::string> saveState; // "-" is standard output
    std::optional<std::string> stats;     // "-" is standard output
    std::optional<std::uint64_t> statsEvery;
    bool observables = false;             // of the statistics
    std::optional<std::string> histogram; // "-" is standard output
    std::optional<CMoments> histogramAt;
    std::optional<int> histogramBins;
    std::optional<double> histogramRange;
    std::optional<std::string> trajectory; // "-" is standard output
    std::optional<std::uint64_t> trajectoryEvery;
    std::optional<std::string> video; // "-" is standard output
    std::optional<std::uint64_t> videoEvery;
    std::optional<std::string> picture;
    std::optional<std::uint64_t> pictureEvery;
    std::optional<std::string> report;
    std::optional<EnumAtomColourMode> colourMode;
    std::optional<CClassColours> colours;
    std::optional<CFactors> factors;
    std::optional<ColourRef> background;
    std::optional<std::string> settings;
    std::optional<std::string> checkpoint;
    std::optional<std::uint64_t> checkpointEvery;
    std::optional<std::string> resume;
    EnumSummaryForm summary = EnumSummaryForm::Text;
    bool noOverlaps = false; // they are not counted
    bool quiet = false;
};

// The names that stand for standard output and for standard input.
constexpr const char* c_sStandardOutput = "-";
constexpr const char* c_sStandardInput = "-";

// The options of a command line, or the text that answers it: the help or the version.
struct CParsedOptions
{
    COptions options;
    std::optional<std::string> answer;
};

// Reads the arguments (UTF-8, without the program's name) and checks each value against the range of its option. Throws
// CUsageError.
CParsedOptions ParseOptions(const std::vector<std::string>& arguments);
