#include "bench/BenchmarkScene.h"
#include "bench/CBenchmarkWorld.h"
#include "simulation/EnumAtomColourMode.h"
#include "view/AtomScene.h"
#include "view/ColourRules.h"
#include "view/EllipseRect.h"

#include <array>
#include <cstddef>
#include <cstdint>

// The cost of a frame without the drawing calls.

namespace
{

// The default factors: slower than 3/4 of the average speed, faster than 5/4 of it.
CColourSettings MakeSettings()
{
    constexpr double c_dSlowFactor = 0.75;
    constexpr double c_dFastFactor = 1.25;
    CColourSettings settings;
    settings[0].dFactor = c_dSlowFactor;
    settings[2].dFactor = c_dFastFactor;
    return settings;
}

// Computes what a painter computes before its drawing call (class and rectangle). Instead of drawing it adds the
// results up, so that the compiler cannot drop the work.
class CCountingPainter
{
public:
    explicit CCountingPainter(const CPoint<int>& ptWorld) : m_ptWorld(ptWorld) {}

    void Draw(const CAtom& atom, int iClass)
    {
        const CRect rc = GetEllipseRect(atom, m_ptWorld);
        m_iCorners += rc.left + rc.top + rc.right + rc.bottom;
        ++m_Drawn[static_cast<std::size_t>(iClass)];
    }

    std::int64_t GetDrawn() const { return m_Drawn[0] + m_Drawn[1] + m_Drawn[2]; }
    std::int64_t GetCornerSum() const { return m_iCorners; }

private:
    CPoint<int> m_ptWorld;
    std::int64_t m_iCorners = 0;
    std::array<std::int64_t, c_uColourClassCount> m_Drawn{};
};

using DrawAtoms = void (*)(const CAtomScene&, CCountingPainter&);

void DrawBySpeed(const CAtomScene& scene, CCountingPainter& painter)
{
    DrawAtoms_Speed(scene, [&painter](const CAtom& atom, int iClass) { painter.Draw(atom, iClass); });
}

void DrawByPlace(const CAtomScene& scene, CCountingPainter& painter)
{
    DrawAtoms_Fixed(scene, [&painter](const CAtom& atom, int iClass) { painter.Draw(atom, iClass); });
}

void MeasureFrames(benchmark::State& state, const CRect& rcVisible, DrawAtoms drawAtoms)
{
    const CScene& scene = GetScene(state);
    CBenchmarkWorld world(scene);
    world.Advance();
    CAtomScene atomScene;
    atomScene.pAtoms = world.atoms.GetAtoms();
    atomScene.count = world.atoms.GetCount();
    atomScene.fAverageSpeed = world.atoms.GetAvgVelocity();
    atomScene.settings = MakeSettings();
    atomScene.rcVisible = rcVisible;
    std::int64_t drawn = 0;
    for ([[maybe_unused]] auto _ : state)
    {
        CCountingPainter painter(atomScene.ptWorld);
        drawAtoms(atomScene, painter);
        benchmark::DoNotOptimize(painter.GetCornerSum());
        drawn = painter.GetDrawn();
    }
    state.counters["drawn"] = static_cast<double>(drawn);
    ShowTimePer(state, "per_atom", scene.atoms);
}

CRect GetWholeWorld(benchmark::State& state)
{
    const CScene& scene = GetScene(state);
    return {0, 0, scene.world.cx, scene.world.cy};
}

void FrameAllDrawnBySpeed(benchmark::State& state)
{
    MeasureFrames(state, GetWholeWorld(state), DrawBySpeed);
}

void FrameAllDrawnByPlace(benchmark::State& state)
{
    MeasureFrames(state, GetWholeWorld(state), DrawByPlace);
}

// Every atom is tested and none is drawn: the visible part is beside the world, further away than any radius.
void FrameAllCulled(benchmark::State& state)
{
    constexpr int c_iBeside = 1'000;
    CRect rcVisible = GetWholeWorld(state);
    const int iShift = rcVisible.GetWidth() + c_iBeside;
    rcVisible.left += iShift;
    rcVisible.right += iShift;
    MeasureFrames(state, rcVisible, DrawBySpeed);
}

// Atoms inside and outside in random order: half of the width and of the height shows, a quarter of the atoms.
void FrameQuarterDrawn(benchmark::State& state)
{
    CRect rcVisible = GetWholeWorld(state);
    rcVisible.right /= 2;
    rcVisible.bottom /= 2;
    MeasureFrames(state, rcVisible, DrawBySpeed);
}

void ColourClasses(benchmark::State& state)
{
    const CScene& scene = GetScene(state);
    CBenchmarkWorld world(scene);
    const CSpeedLimits limits = GetSpeedLimits(world.atoms.GetAvgVelocity(), MakeSettings());
    for ([[maybe_unused]] auto _ : state)
    {
        std::int64_t sum = 0;
        for (std::int32_t i = 0; i < world.atoms.GetCount(); ++i)
        {
            sum += ClassOfSpeed(world.atoms[i].speed, limits);
        }
        benchmark::DoNotOptimize(sum);
    }
    ShowTimePer(state, "per_atom", scene.atoms);
}

void AddScenes(benchmark::internal::Benchmark* pBenchmark)
{
    pBenchmark->DenseRange(0, c_iSceneCount - 1)->Unit(benchmark::kMillisecond);
}

BENCHMARK(FrameAllCulled)->Apply(AddScenes);
BENCHMARK(FrameAllDrawnBySpeed)->Apply(AddScenes);
BENCHMARK(FrameAllDrawnByPlace)->Apply(AddScenes);
BENCHMARK(FrameQuarterDrawn)->Apply(AddScenes);
BENCHMARK(ColourClasses)->Apply(AddScenes);

} // namespace
