#include "tests/simulation/CWorld.h"

#include <algorithm>
#include <random>
#include <string>

namespace
{

constexpr int c_iRandomScenes = 1000;
constexpr int c_iMostAtoms = 20'000;
constexpr double c_dPairTestsPerMove = 10;   // moving an atom takes about as long as these
constexpr double c_dPairTestsPerScene = 6e5; // bounds the plain form to a few milliseconds per scene

// A number from low to high with a uniformly distributed logarithm: small worlds are as frequent as large ones.
int DrawSpread(std::mt19937& draw, int low, int high)
{
    std::uniform_real_distribution<double> power(std::log(low), std::log1p(high));
    return std::clamp(static_cast<int>(std::exp(power(draw))), low, high);
}

// A random scene: any size, any radii, filled or empty, from one point or scattered.
CScene DrawScene(std::mt19937& draw)
{
    CScene scene = {"random", {DrawSpread(draw, 10, 9999), DrawSpread(draw, 10, 9999)}, 1, 1, 1, draw(), {}};
    if (draw() % 4 == 0)
    {
        scene.world.cx = scene.world.cy = 9999;
    }
    const int firstRadius = DrawSpread(draw, 1, 32);
    const int secondRadius = DrawSpread(draw, 1, 32);
    scene.minRadius = static_cast<std::uint8_t>(std::min(firstRadius, secondRadius));
    scene.maxRadius = static_cast<std::uint8_t>(std::max(firstRadius, secondRadius));
    scene.atoms = DrawSpread(draw, 1, c_iMostAtoms);
    if (draw() % 4 == 0)
    {
        scene.start = CPoint<int>{DrawSpread(draw, 1, 9999), DrawSpread(draw, 1, 9999)};
    }
    return scene;
}

// The number of iterations in which a crowded scene takes no longer than an empty one.
int GetIterations(const CScene& scene)
{
    const double cells = std::max(1, (scene.world.cx / 100) * (scene.world.cy / 100));
    const double perCell = scene.start ? scene.atoms : std::min(scene.atoms, 1000) / std::min<double>(cells, 1000) + 1;
    const double tested = std::min(perCell, 1000.0);
    const double pairTests = scene.atoms * tested / 2 + 1;
    return std::clamp(static_cast<int>(c_dPairTestsPerScene / (pairTests + c_dPairTestsPerMove * scene.atoms)), 1, 40);
}

void CompareScene(const CScene& scene, int iterations, const CSimulationKernels& kernels, int threads)
{
    SCOPED_TRACE(std::to_string(scene.atoms) + " atoms of " + std::to_string(scene.minRadius) + " to " +
                 std::to_string(scene.maxRadius) + " in " + std::to_string(scene.world.cx) + " x " +
                 std::to_string(scene.world.cy) + ", seed " + std::to_string(scene.seed) +
                 (scene.start ? ", from one point, " : ", ") + kernels.name + ", " + std::to_string(threads) +
                 " threads");
    CWorld world(scene);
    world.pKernels = &kernels;
    world.UseThreads(threads);
    CReferenceWorld reference = MakeReference(scene);
    for (int iteration = 0; iteration < iterations; ++iteration)
    {
        ASSERT_EQ(world.Advance(), reference.Advance()) << "collisions of iteration " << iteration;
    }
    ASSERT_TRUE(IsSameWorld(world, reference));
    ASSERT_EQ(world.random.GetRandomNumber_Float(0, 1), reference.GetRandom().GetRandomNumber_Float(0, 1));
}

TEST(Differential, RandomWorldsEqualThePlainFormBitForBit)
{
    std::mt19937 draw(2026);
    for (int i = 0; i < c_iRandomScenes; ++i)
    {
        const CScene scene = DrawScene(draw);
        const auto kernels = GetAllKernels();
        const auto uScene = static_cast<std::size_t>(i);
        const int threads = c_ThreadCounts.at(uScene / kernels.size() % c_ThreadCounts.size());
        CompareScene(scene, GetIterations(scene), kernels[uScene % kernels.size()], threads);
        if (HasFatalFailure())
        {
            return;
        }
    }
}

// Each set of kernels on one thread, and the fastest on several.
void CompareWithAllKernels(const CScene& scene, int iterations)
{
    for (const CSimulationKernels& kernels : GetAllKernels())
    {
        CompareScene(scene, iterations, kernels, 1);
    }
    CompareScene(scene, iterations, GetSimulationKernels(), 3);
}

TEST(Differential, TheDefaultSceneEqualsThePlainForm)
{
    CompareWithAllKernels(c_SceneDefault, 2000);
}

TEST(Differential, AFilledSceneEqualsThePlainForm)
{
    CompareWithAllKernels(c_SceneFilled, 40);
}

TEST(Differential, ADenseSceneEqualsThePlainForm)
{
    CompareWithAllKernels(c_SceneDense, 10);
}

TEST(Differential, ASparseSceneEqualsThePlainForm)
{
    CompareWithAllKernels(c_SceneSparse, 10);
}

TEST(Differential, ABurstFromOnePointEqualsThePlainForm)
{
    CompareWithAllKernels(c_SceneBurst, 60);
}

TEST(Differential, TheLargestSceneEqualsThePlainForm)
{
    CompareScene(c_SceneLargest, 2, GetSimulationKernels(), 1);
    CompareScene(c_SceneLargest, 2, GetSimulationKernels(), 2);
}

} // namespace
