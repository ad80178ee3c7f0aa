#include "bench/Contention.h"
#include "bench/FrameCapRun.h"
#ifdef _WIN32
#include "bench/GdiFrames.h"
#endif
#include "bench/Growth.h"
#include "bench/Ratios.h"
#include "bench/Replay.h"
#include "classes/core/CLibrarySettings.h"
#include "diagnostics/DebugOutputVariable.h"

#ifdef KINETARIUM_HAS_BENCHMARK
#include <benchmark/benchmark.h>
#endif

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace
{

constexpr int c_iExitUsage = 2;
constexpr double c_dDefaultFrameCapSeconds = 5;
constexpr double c_dDefaultContentionSeconds = 20; // for each scene

int PrintUsage()
{
    std::puts("kinetarium-bench --ratios               plain form compared with the program's, five scenes;\n"
              "                                        fails if one bit of the results differs\n"
              "kinetarium-bench --growth               time and memory per atom, from 1,000 atoms to 1,000,000\n"
              "kinetarium-bench --contention [SECONDS] one thread and several while as many others compute,\n"
              "                                        three scenes\n"
              "kinetarium-bench --replay [FILE.svg]    gain by more threads, from measured times of each cell\n"
              "kinetarium-bench --frame-cap [SECONDS]  iterations per second of the run loop without drawing");
#ifdef _WIN32
    std::puts(
        "kinetarium-bench --gdi-frames           the GDI painter compared with an ellipse of the system for each\n"
        "                                        atom, seven scenes; fails if one pixel differs");
#endif
#ifdef KINETARIUM_HAS_BENCHMARK
    std::puts("kinetarium-bench [--benchmark_...]      every stage by itself (see --help of Google Benchmark)");
#endif
    return c_iExitUsage;
}

int RunStages([[maybe_unused]] int argc, [[maybe_unused]] char** argv)
{
#ifdef KINETARIUM_HAS_BENCHMARK
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
    {
        return PrintUsage();
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return EXIT_SUCCESS;
#else
    return PrintUsage();
#endif
}

} // namespace

int main(int argc, char** argv)
{
    CLibrarySettings settings;
    settings.sProgramName = "kinetarium-bench";
    settings.sDebugOutputVariable = c_sDebugOutputVariable;
    SetLibrarySettings(settings);
    const std::string_view sOption = argc > 1 ? argv[1] : "";
    if (sOption == "--ratios" && argc == 2)
    {
        return PrintRatios() ? EXIT_SUCCESS : EXIT_FAILURE;
    }
    if (sOption == "--growth" && argc == 2)
    {
        PrintGrowth();
        return EXIT_SUCCESS;
    }
#ifdef _WIN32
    if (sOption == "--gdi-frames" && argc == 2)
    {
        return PrintGdiFrames() ? EXIT_SUCCESS : EXIT_FAILURE;
    }
#endif
    if (sOption == "--replay" && argc <= 3)
    {
        return PrintReplay(argv[2]) ? EXIT_SUCCESS : EXIT_FAILURE;
    }
    if (sOption == "--contention" && argc <= 3)
    {
        const double seconds = argc > 2 ? std::strtod(argv[2], nullptr) : c_dDefaultContentionSeconds;
        return seconds > 0 ? PrintContention(seconds) : PrintUsage();
    }
    if (sOption == "--frame-cap")
    {
        const double seconds = argc > 2 ? std::strtod(argv[2], nullptr) : c_dDefaultFrameCapSeconds;
        return seconds > 0 ? PrintFrameCap(seconds) : PrintUsage();
    }
    return RunStages(argc, argv);
}
