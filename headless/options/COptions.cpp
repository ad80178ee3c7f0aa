#include "headless/options/COptions.h"

#include "headless/console/HeadlessError.h"
#include "headless/options/OptionValues.h"
#include "settings/SettingRows.h"
#include "simulation/ThreadSetting.h"

#include <CLI/CLI.hpp>

#include <functional>
#include <initializer_list>
#include <limits>
#include <type_traits>
#include <utility>

namespace
{

constexpr std::uint64_t c_uMostIterations = 1'000'000'000'000; // years of the smallest world
constexpr std::uint64_t c_uMostBins = 1000;                    // a checkpoint holds the last histogram
constexpr std::uint64_t c_uLargestSeed = std::numeric_limits<std::uint64_t>::max();

// Adds an option. A function of OptionValues.h reads its text and gets the option's name for messages.
template<class T, class Parse>
void AddOption(CLI::App& app, const std::string& sName, T& target, Parse parse, const char* sType,
               const char* sDescription)
{
    const std::function<void(const std::string&)> store = [&target, parse, sName](const std::string& sText) {
        target = parse(sName, sText);
    };
    app.add_option_function<std::string>(sName, store, sDescription)->type_name(sType);
}

template<class T>
void AddNumber(CLI::App& app, const std::string& sName, T& target, std::uint64_t uLow, std::uint64_t uHigh,
               const char* sDescription)
{
    const auto parse = [uLow, uHigh](const std::string& sOption, const std::string& sText) {
        using CNumber = typename std::conditional_t<std::is_same_v<T, std::optional<int>>, int, std::uint64_t>;
        return static_cast<CNumber>(ParseNumberOption(sOption, sText, uLow, uHigh));
    };
    AddOption(app, sName, target, parse, "N", sDescription);
}

// A number of iterations.
template<class T>
void AddCount(CLI::App& app, const std::string& sName, T& target, std::uint64_t uLow, const char* sDescription)
{
    const auto parse = [uLow](const std::string& sOption, const std::string& sText) {
        return ParseCountOption(sOption, sText, uLow, c_uMostIterations);
    };
    AddOption(app, sName, target, parse, "N", sDescription);
}

// A number with the range and the default of a setting.
void AddSetting(CLI::App& app, const std::string& sName, std::optional<int>& target, EnumSetting eSetting,
                const std::string& sWhat)
{
    const CSettingRow& row = GetSettingRow(eSetting);
    const std::string sDescription = sWhat + ", " + std::to_string(row.range.low) + ".." +
                                     std::to_string(row.range.high) + " (" + std::to_string(row.byDefault.uSpeed) + ")";
    AddNumber(app, sName, target, static_cast<std::uint64_t>(row.range.low), static_cast<std::uint64_t>(row.range.high),
              sDescription.c_str());
}

void AddFile(CLI::App& app, const std::string& sName, std::optional<std::string>& target, const char* sDescription)
{
    const auto parse = [](const std::string& sOption, const std::string& sText) {
        if (sText.empty())
        {
            throw CUsageError(sOption + ": the file name is empty");
        }
        return sText;
    };
    AddOption(app, sName, target, parse, "FILE", sDescription);
}

void AddWorldOptions(CLI::App& app, COptions& options)
{
    AddSetting(app, "--width", options.width, EnumSetting::WorldWidth, "World width");
    AddSetting(app, "--height", options.height, EnumSetting::WorldHeight, "World height");
    AddSetting(app, "--atoms", options.atoms, EnumSetting::TotalAtoms, "Number of atoms");
    AddSetting(app, "--min-radius", options.minRadius, EnumSetting::MinRadius, "Smallest radius");
    AddSetting(app, "--max-radius", options.maxRadius, EnumSetting::MaxRadius, "Largest radius");
    AddNumber(app, "--seed", options.seed, 0, c_uLargestSeed, "Seed of the random numbers (drawn from the system)");
    AddOption(app, "--start-at", options.startAt, ParsePointOption, "X,Y", "Point where every atom starts");
    AddCount(app, "--iterations", options.iterations, 0, "Number of iterations, such as 5000 or 1e6 (1000)");
    AddNumber(app, "--threads", options.threads, 1, c_iMaxThreads,
              "Most threads for an iteration (KINETARIUM_THREADS, or one for each processor); the result is the same");
    AddFile(app, "--load-state", options.loadState,
            "Take the atoms from a CSV file, - is standard input; needs the size of their world; not with --atoms, the "
            "radii or --start-at");
    AddFile(app, "--resume", options.resume,
            "Continue the run of a checkpoint for N iterations more; brings the world, the atoms and the seed");
    AddFile(app, "--settings", options.settings,
            "Take world, atoms, radii and colours from a Kinetarium.ini; options given beside it win");
}

void AddStatsOptions(CLI::App& app, COptions& options)
{
    AddFile(app, "--stats", options.stats, "Write one row of CSV for each iteration; - is standard output");
    AddCount(app, "--stats-every", options.statsEvery, 1,
             "With --stats: a row every N iterations and for the last; collisions and bounces are those since the row "
             "before (1)");
    app.add_flag("--observables", options.observables,
                 "With --stats: more columns: kinetic energy per atom, momentum, bounces and impulse at each wall, "
                 "pressure = impulses / (perimeter * iterations)");
}

void AddHistogramOptions(CLI::App& app, COptions& options)
{
    AddFile(app, "--histogram", options.histogram,
            "Write the speeds of the atoms as CSV, counted in bins; - is standard output");
    const auto parse = [](const std::string& sOption, const std::string& sText) {
        return ParseMomentsOption(sOption, sText, c_uMostIterations);
    };
    AddOption(app, "--histogram-at", options.histogramAt, parse, "N,N,end",
              "With --histogram: after these iterations; 0 is the start, end the last (end)");
    AddNumber(app, "--histogram-bins", options.histogramBins, 1, c_uMostBins,
              "With --histogram: number of equal bins, 1..1000 (50); one more counts faster atoms");
    AddOption(app, "--histogram-range", options.histogramRange, ParseSpeedOption, "SPEED",
              "With --histogram: the bins divide the speeds from 0 to SPEED (4 times the average at the start)");
}

void AddOutputOptions(CLI::App& app, COptions& options)
{
    AddFile(app, "--save-state", options.saveState,
            "Write the atoms after the last iteration as CSV; - is standard output");
    AddStatsOptions(app, options);
    AddHistogramOptions(app, options);
    AddFile(
        app, "--trajectory", options.trajectory,
        "Write the atoms at the start and at the end as frames of extended XYZ, compressed if the name ends in .gz; - "
        "is standard output");
    AddCount(app, "--every", options.trajectoryEvery, 1, "With --trajectory: also after every N iterations");
    AddFile(app, "--video", options.video,
            "Write pictures of the world as YUV4MPEG2, 60 in a second, for players and encoders; - is standard output");
    AddCount(app, "--video-every", options.videoEvery, 1, "With --video: a picture every N iterations (1)");
    AddFile(app, "--picture", options.picture, "Write a PNG of the world after the last iteration");
    AddCount(app, "--picture-every", options.pictureEvery, 1,
             "With --picture: one after every N iterations too, numbered before the extension");
    AddOption(app, "--colour-mode", options.colourMode, ParseModeOption, "speed|fixed",
              "What an atom's colour depends on (speed)");
    AddOption(app, "--colours", options.colours, ParseColoursOption, "RRGGBB,RRGGBB,RRGGBB",
              "The colours of the three classes");
    AddOption(app, "--factors", options.factors, ParseFactorsOption, "A,B,C",
              "Speed: multiples of the average speed (0.75,,1.25). Fixed: atoms or percentages (25%,50%,)");
    AddOption(app, "--background", options.background, ParseColourOption, "RRGGBB", "The colour of the world");
    AddFile(app, "--checkpoint", options.checkpoint,
            "Write everything that --resume needs, after the last iteration and when the run is interrupted");
    AddCount(app, "--checkpoint-every", options.checkpointEvery, 1, "With --checkpoint: also after every N iterations");
    AddFile(app, "--report", options.report, "Write a page of HTML about the run: its picture, curves and numbers");
    AddOption(app, "--summary", options.summary, ParseSummaryOption, "json|csv|text",
              "The form of the summary (text); JSON and CSV take one line, CSV with a header");
    app.add_flag("--no-overlaps", options.noOverlaps,
                 "Do not count overlaps at the end; the count takes at most as long as the run, or 2 s");
    app.add_flag("--quiet", options.quiet, "No progress bar");
}

// A loaded state brings its own atoms. Options that would make others must not be ignored silently.
void CheckCombinations(const COptions& options)
{
    const std::pair<bool, const char*> population[] = {{options.atoms.has_value(), "--atoms"},
                                                       {options.minRadius.has_value(), "--min-radius"},
                                                       {options.maxRadius.has_value(), "--max-radius"},
                                                       {options.startAt.has_value(), "--start-at"}};
    for (const auto& [bGiven, sName] : population)
    {
        if (options.loadState && bGiven)
        {
            throw CUsageError(std::string(sName) + ": is not allowed with --load-state, whose file brings the atoms");
        }
    }
    if (options.picture == c_sStandardOutput)
    {
        throw CUsageError("--picture: standard output is not allowed; allowed is the name of a file");
    }
    if (options.report == c_sStandardOutput)
    {
        throw CUsageError("--report: standard output is not allowed; allowed is the name of a file");
    }
    if (options.pictureEvery && !options.picture)
    {
        throw CUsageError("--picture-every: needs --picture, which names the files");
    }
    if (options.trajectoryEvery && !options.trajectory)
    {
        throw CUsageError("--every: needs --trajectory, which names the file");
    }
    if (options.videoEvery && !options.video)
    {
        throw CUsageError("--video-every: needs --video, which names the file");
    }
}

// Refuses details of a file that is not asked for.
void CheckDetails(const std::optional<std::string>& file, const char* sFileOption,
                  std::initializer_list<std::pair<bool, const char*>> details)
{
    for (const auto& [bGiven, sName] : details)
    {
        if (!file && bGiven)
        {
            throw CUsageError(std::string(sName) + ": needs " + sFileOption + ", which names the file");
        }
    }
}

void CheckObserverOptions(const COptions& options)
{
    CheckDetails(options.stats, "--stats",
                 {{options.statsEvery.has_value(), "--stats-every"}, {options.observables, "--observables"}});
    CheckDetails(options.histogram, "--histogram",
                 {{options.histogramAt.has_value(), "--histogram-at"},
                  {options.histogramBins.has_value(), "--histogram-bins"},
                  {options.histogramRange.has_value(), "--histogram-range"}});
}

void CheckCheckpointOptions(const COptions& options)
{
    if (options.checkpointEvery && !options.checkpoint)
    {
        throw CUsageError("--checkpoint-every: needs --checkpoint, which names the file");
    }
    if (options.checkpoint == c_sStandardOutput)
    {
        throw CUsageError("--checkpoint: standard output is not allowed; allowed is the name of a file");
    }
    const std::pair<bool, const char*> sources[] = {{options.loadState.has_value(), "--load-state"},
                                                    {options.settings.has_value(), "--settings"}};
    for (const auto& [bGiven, sName] : sources)
    {
        if (options.resume && bGiven)
        {
            throw CUsageError(std::string(sName) + ": is not allowed with --resume, whose checkpoint brings the world");
        }
    }
}

} // namespace

CParsedOptions ParseOptions(const std::vector<std::string>& arguments)
{
    CLI::App app("Runs the simulation of Kinetarium without a window, repeatable to the bit", "kinetarium-headless");
    CParsedOptions parsed;
    AddWorldOptions(app, parsed.options);
    AddOutputOptions(app, parsed.options);
    app.set_version_flag("--version", std::string("kinetarium-headless ") + KINETARIUM_VERSION);
    try
    {
        // The library expects the arguments in reverse order.
        app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
    }
    catch (const CLI::CallForHelp&)
    {
        parsed.answer = app.help();
        return parsed;
    }
    catch (const CLI::CallForVersion& version)
    {
        parsed.answer = std::string(version.what()) + '\n';
        return parsed;
    }
    catch (const CLI::ParseError& error)
    {
        throw CUsageError(error.what());
    }
    CheckCombinations(parsed.options);
    CheckObserverOptions(parsed.options);
    CheckCheckpointOptions(parsed.options);
    return parsed;
}
