#include "bench/FrameCapRun.h"

#include "classes/core/CDateTime.h"
#include "classes/core/CRandom.h"
#include "simulation/CAtoms.h"
#include "simulation/CCollisionGrid.h"
#include "simulation/CRunClock.h"
#include "simulation/IFinishedEvent.h"
#include "simulation/IFrameSink.h"
#include "simulation/Population.h"
#include "simulation/RunLoop.h"
#include "tests/reference/Scenes.h"

#include <atomic>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace
{

constexpr double c_dMicroSecondsPerSecond = 1e6;

// Counts frames, prints the statistics lines, and stops the loop at the first frame after the given time.
class CCountingView final : public IFrameSink, public IFinishedEvent
{
public:
    explicit CCountingView(double seconds)
        : m_MicroSeconds(static_cast<std::int64_t>(seconds * c_dMicroSecondsPerSecond))
    {
    }

    void DrawFrame() override
    {
        ++m_iFrames;
        const CDateTime now;
        if (now.DiffInMicroSeconds(m_Start) >= m_MicroSeconds)
        {
            m_Elapsed = now.DiffInMicroSeconds(m_Start);
            m_bRunning = false;
        }
    }

    void ShowStatistics(const CWString& line) override { std::printf("%ls\n", line.c_str()); }
    void Reset() noexcept override {}
    void Set() noexcept override {}

    const std::atomic<bool>& GetRunning() const { return m_bRunning; }

    double GetFramesPerSecond() const { return m_iFrames * c_dMicroSecondsPerSecond / static_cast<double>(m_Elapsed); }

private:
    CDateTime m_Start;
    std::int64_t m_MicroSeconds;
    std::int64_t m_Elapsed = 1;
    int m_iFrames = 0;
    std::atomic<bool> m_bRunning{true};
};

} // namespace

int PrintFrameCap(double seconds)
{
    const CScene& scene = c_SceneDefault;
    CRandom random(scene.seed);
    CAtoms atoms;
    CCollisionGrid grid;
    Populate(atoms, grid, scene.world, scene.atoms, scene.minRadius, scene.maxRadius, nullptr, random);

    CCountingView view(seconds);
    CRunClock clock;
    RunLoop(atoms, grid, scene.world, random, view.GetRunning(), view, view, clock, nullptr);
    std::printf("%s, nothing drawn: %.2f iterations per second over %.1f s\n", scene.name, view.GetFramesPerSecond(),
                seconds);
    return EXIT_SUCCESS;
}
