#include "bench/MachineGain.h"

#include "bench/Measurement.h"
#include "simulation/CHelperPool.h"

#include <atomic>
#include <thread>

namespace
{

constexpr int c_iSums = 4'000'000;

using Floats = float __attribute__((vector_size(16)));

std::atomic<float> g_fResult; // keeps the compiler from leaving the sums out

// Eight chains of products and sums keep the arithmetic of a core busy. They begin with different numbers, or the
// compiler would compute one of them for all.
void AddUp()
{
    const Floats factor = {0.5F, 0.5F, 0.5F, 0.5F};
    Floats a{};
    Floats b = a + factor;
    Floats c = b + factor;
    Floats d = c + factor;
    Floats e = d + factor;
    Floats f = e + factor;
    Floats g = f + factor;
    Floats h = g + factor;
    for (int turn = 0; turn < c_iSums; ++turn)
    {
        a = a * factor + factor;
        b = b * factor + factor;
        c = c * factor + factor;
        d = d * factor + factor;
        e = e * factor + factor;
        f = f * factor + factor;
        g = g * factor + factor;
        h = h * factor + factor;
    }
    g_fResult = (a + b + c + d + e + f + g + h)[0];
}

} // namespace

double MeasureMachineGain(CHelperPool& helpers)
{
    const double one = MeasureMilliseconds(1, AddUp);
    const int threads = helpers.GetHelperCount() + 1;
    std::atomic<int> arrived = 0;
    const auto addUpTogether = [&] {
        ++arrived;
        while (arrived < threads)
        {
            std::this_thread::yield();
        }
        AddUp();
    };
    const double all = MeasureMilliseconds(1, [&] { helpers.Run(addUpTogether); });
    return threads * one / all;
}
