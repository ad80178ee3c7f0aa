#include "bench/Contention.h"

#include "bench/CBenchmarkWorld.h"
#include "simulation/CParallelIteration.h"
#include "simulation/SimulationKernels.h"
#include "simulation/ThreadSetting.h"
#include "simulation/WavefrontRule.h"

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <thread>
#include <vector>

namespace
{

constexpr std::array c_Scenes = {c_SceneFilled, c_SceneSparse, c_SceneLargest};
constexpr std::chrono::duration<double> c_Turn{0.1}; // many times as long as a thread may keep a processor

// Threads that compute until the object is destroyed.
class CBusyProcessors
{
public:
    explicit CBusyProcessors(int threads)
    {
        for (int thread = 0; thread < threads; ++thread)
        {
            m_Threads.emplace_back([](const std::stop_token& stop) {
                while (!stop.stop_requested())
                {
                }
            });
        }
    }

private:
    std::vector<std::jthread> m_Threads;
};

// A way to compute a scene. Its time counts as a whole: what it waits for another program belongs to it.
struct CContender
{
    std::function<void()> advance;
    double seconds = 0;
    int iterations = 0;

    // On a thread of its own. How much of a processor a thread gets depends on what it did before: the turn after one
    // of several threads takes up to 30 % longer on the same thread.
    void TakeTurn()
    {
        const std::jthread turn([this] {
            const auto start = std::chrono::steady_clock::now();
            std::chrono::duration<double> elapsed{};
            while (elapsed < c_Turn)
            {
                advance();
                ++iterations;
                elapsed = std::chrono::steady_clock::now() - start;
            }
            seconds += elapsed.count();
        });
    }

    double GetMilliseconds() const { return 1000 * seconds / iterations; }
};

void PrintScene(const CScene& scene, double seconds)
{
    CBenchmarkWorld one(scene, 1);
    CBenchmarkWorld always(scene, 1);
    CBenchmarkWorld chosen(scene, GetThreadCount());
    CParallelIteration parallel(GetThreadCount() - 1, CWavefrontRule::Get(always.grid.GetGeometry(), scene.maxRadius));
    const CSimulationKernels& kernels = GetSimulationKernels();
    std::array contenders = {CContender{[&] { one.Advance(); }}, CContender{[&] {
                                 parallel.Advance(always.atoms, always.grid, always.size, always.random, kernels);
                             }},
                             CContender{[&] { chosen.Advance(); }}};
    one.Settle();
    always.Settle();
    chosen.Settle();
    const CBusyProcessors busy(GetThreadCount());
    const auto start = std::chrono::steady_clock::now();
    while (std::chrono::steady_clock::now() - start < std::chrono::duration<double>(seconds))
    {
        for (CContender& contender : contenders)
        {
            contender.TakeTurn();
        }
    }
    const double oneMs = contenders[0].GetMilliseconds();
    const double chosenMs = contenders[2].GetMilliseconds();
    std::printf("%-28s %10.3f ms %10.3f ms %10.3f ms %10.2f\n", scene.name, oneMs, contenders[1].GetMilliseconds(),
                chosenMs, chosenMs / oneMs);
    static_cast<void>(std::fflush(stdout));
}

} // namespace

int PrintContention(double seconds)
{
    std::printf("threads: %d, as many processors kept busy\n", GetThreadCount());
    std::printf("%-28s %13s %13s %13s %10s\n", "scene", "one thread", "all, always", "as chosen", "of one");
    for (const CScene& scene : c_Scenes)
    {
        PrintScene(scene, seconds);
    }
    return EXIT_SUCCESS;
}
