#include "bench/CBenchmarkWorld.h"
#include "bench/Measurement.h"
#include "bench/peers/IPeerGas.h"

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <span>
#include <vector>

// Prints the time of a step of the same gas in this program and in the installed engines, on one thread.

namespace
{

constexpr std::size_t c_uWarmUpSteps = 3;
constexpr std::size_t c_uFewestSteps = 3;
constexpr std::size_t c_uMostSteps = 60; // few enough that the gas of another engine does not cool or heat up much
constexpr double c_dMillisecondsPerScene = 3'000;

// The median time of a step, in milliseconds. The first steps, which also find all initial contacts, do not count.
template<class Step>
double MeasureStep(Step step)
{
    MeasureMilliseconds(c_uWarmUpSteps, step);
    std::vector<double> times;
    double total = 0;
    while (times.size() < c_uFewestSteps || (total < c_dMillisecondsPerScene && times.size() < c_uMostSteps))
    {
        times.push_back(MeasureMilliseconds(1, step));
        total += times.back();
    }
    return GetMedian(times);
}

using MakeGas = std::unique_ptr<IPeerGas> (*)(const CSize<int>&, std::span<const CAtom>);

void ComparePeer(const char* sName, MakeGas makeGas, const CScene& scene, std::span<const CAtom> atoms, double ours)
{
    const auto pGas = makeGas(scene.world, atoms);
    const double energy = pGas->GetEnergy();
    const double theirs = MeasureStep([&pGas] { pGas->Step(); });
    std::printf("%-28s %-10s %12.4f %12.4f %8.1f %8.3f\n", scene.name, sName, ours, theirs, theirs / ours,
                pGas->GetEnergy() / energy);
    static_cast<void>(std::fflush(stdout));
}

void CompareScene(const CScene& scene)
{
    // All start with the same settled gas, so that none has to separate atoms first.
    CBenchmarkWorld world(scene);
    world.Settle();
    const std::span<const CAtom> all(world.atoms.GetAtoms(), static_cast<std::size_t>(world.atoms.GetCount()));
    const std::vector<CAtom> start(all.begin(), all.end());
    const double ours = MeasureStep([&world] { world.Advance(); });
#ifdef KINETARIUM_HAS_BOX2D
    ComparePeer("Box2D", MakeBox2DGas, scene, start, ours);
#endif
#ifdef KINETARIUM_HAS_CHIPMUNK
    ComparePeer("Chipmunk", MakeChipmunkGas, scene, start, ours);
#endif
}

} // namespace

// Without an argument: all scenes. With a number, counted from 1: that scene alone.
int main(int argc, char** argv)
{
    const std::size_t uOnly = argc > 1 ? std::strtoul(argv[1], nullptr, 0) : 0;
    std::printf("%-28s %-10s %12s %12s %8s %8s\n", "scene", "engine", "ours, ms", "its, ms", "ratio", "energy");
    for (std::size_t uScene = 1; uScene <= c_BenchmarkScenes.size(); ++uScene)
    {
        if (uOnly == 0 || uOnly == uScene)
        {
            CompareScene(c_BenchmarkScenes.at(uScene - 1));
        }
    }
    return EXIT_SUCCESS;
}
